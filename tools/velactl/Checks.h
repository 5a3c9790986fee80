// What doctor checks, one after the other.
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
    std::string nextStep;  // for one that failed
};

// What earlier checks found out.
struct Patient {
    explicit Patient(Context& theContext) : context(theContext) {}

    Context& context;
    bool isLoaded = false;
    bool isPresent = false;
    bool isOpen = false;
    std::string firmware;  // once it is open
};

struct Check {
    const char* name;
    CheckResult (*run)(Patient&);
};

// In an order in which the first failure is the one to mend first.
const std::vector<Check>& Checks();

}  // namespace velactl
