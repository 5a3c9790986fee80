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
    Outcome outcome = Outcome::kSkipped;
    std::string finding;
    std::string nextStep;  // for a failed check
};

inline CheckResult Ok(const std::string& finding) { return {Outcome::kOk, finding, ""}; }
inline CheckResult Skipped(const std::string& finding) { return {Outcome::kSkipped, finding, ""}; }
inline CheckResult Failed(const std::string& finding, const std::string& nextStep) {
    return {Outcome::kFailed, finding, nextStep};
}

// The results of earlier checks.
struct DoctorContext {
    explicit DoctorContext(Context& theContext) : context(theContext) {}

    Context& context;
    bool isLoaded = false;
    bool isPresent = false;
    std::vector<std::string> missingParts;  // of the touchpad that is present
    bool isOpen = false;
    std::string firmware;  // set when the touchpad was opened
};

struct Check {
    const char* name;
    CheckResult (*run)(DoctorContext&);
};

constexpr char kLastSessionCheck[] = "last session";

// Returns the checks, ordered so that the first failure is the one to fix first.
const std::vector<Check>& Checks();

struct NamedResult {
    std::string name;
    CheckResult result;
};

// Runs all of them.
std::vector<NamedResult> RunChecks(Context& context);

// Returns "ok", "failed" or "skipped".
const char* Word(Outcome outcome);
// Returns a line for each result, and below a failed one the next step.
std::string DoctorText(const std::vector<NamedResult>& results);

}  // namespace velactl
