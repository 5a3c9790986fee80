// Records every HID collection of the machine. tools/recording/README.md documents the format.
#pragma once

#include "tools/velactl/Render.h"
#include "tools/velactl/StopSignal.h"

namespace velactl {

// Product and manufacturer strings are requested from the devices themselves, so they are read only
// of the vendors that the agent looks for.
enum class RecordedStrings { kOfWantedVendors, kOfEveryVendor };

// Opens each collection without read or write access, sends nothing and sets nothing. Throws
// Failure when the user stops the program.
Json RecordMachine(RecordedStrings strings, const StopSignal& stop);

// Returns {"call", "answeredBy", "count", "failed"} for each kind of call in the recording.
Json RequestsOf(const Json& collections);

}  // namespace velactl
