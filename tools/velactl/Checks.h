// The checks of doctor, one after the other.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/velactl/Context.h"

namespace velactl {

enum class Outcome { kOk, kFailed, kSkipped };

struct CheckResult {
    Outcome outcome;
    std::string finding;
    std::string nextStep;  // for a failed check
};

// The results of earlier checks.
struct DoctorContext {
    explicit DoctorContext(Context& theContext) : context(theContext) {}

    Context& context;
    bool isLoaded = false;
    bool isPresent = false;
    bool isOpen = false;
    std::string firmware;  // set when the touchpad was opened
};

struct Check {
    const char* name;
    CheckResult (*run)(DoctorContext&);
};

// Returns the checks, ordered so that the first failure is the one to fix first.
const std::vector<Check>& Checks();

}  // namespace velactl
