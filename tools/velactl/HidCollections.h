// The machine's HID collections, examined by the code of the agent's discovery.
#pragma once

#include <string>
#include <vector>

#include "hid/Examination.h"

namespace velactl {

// A collection as one of the agent's sessions examines it.
struct HidCollection {
    std::wstring path;
    vela::Examination examination;  // without its preparsed data, which is freed
    std::string reasonAgainst;      // why the session rejects it; empty when it matches
};

// The result is in the order of the paths. The system knows all that this reads: no request is sent
// to a device.
std::vector<HidCollection> ExamineCollections(const std::vector<std::wstring>& paths,
                                              vela::IDiscoveryQuery& query);

// Returns the one that the session chooses, the first that matches; null when none does.
const HidCollection* ChosenCollection(const std::vector<HidCollection>& collections);

// Returns an empty string when it cannot be read. This is a request to the device itself, and waits
// for its answer.
std::wstring ReadProductString(const HidCollection& collection);

}  // namespace velactl
