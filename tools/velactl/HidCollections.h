// The machine's HID collections, judged as the agent's discovery judges them.
#pragma once

#include <string>
#include <vector>

#include "hid/Examination.h"

namespace velactl {

// As it looks to one of the agent's sessions.
struct HidCollection {
    std::wstring path;
    std::wstring product;
    vela::Examination examination;  // its preparsed data was freed
    std::string reasonAgainst;      // why the session turns it down; empty when it matches
};

// In the order of the paths.
std::vector<HidCollection> ExamineCollections(const std::vector<std::wstring>& paths,
                                              vela::IDiscoveryQuery& query);

// The one that the session chooses: the first that matches. Null when none does.
const HidCollection* ChosenCollection(const std::vector<HidCollection>& collections);

}  // namespace velactl
