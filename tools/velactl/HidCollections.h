// The machine's HID collections, judged as the agent's discovery judges them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hid/HIDInformation.h"
#include "hid/IDiscoveryQuery.h"

namespace velactl {

// The path alone when nothing else could be read.
struct HidCollection {
    std::shared_ptr<vela::CHIDInformation> information;
    std::wstring product;
    std::string problem;  // why it cannot be read; empty when it can
};

// In the system's order, which is the order in which the agent looks at them.
std::vector<HidCollection> ListHidCollections();

// Why the session turns this collection down; empty when it fits. Fills the capability catalogue of
// one that fits.
std::string ReasonAgainst(const HidCollection& collection, vela::IDiscoveryQuery& query);

// The one that the session chooses, its catalogue filled; null when none fits.
std::shared_ptr<vela::CHIDInformation> ChosenCollection(
    const std::vector<HidCollection>& collections, vela::IDiscoveryQuery& query);

}  // namespace velactl
