#include "tools/velactl/Checks.h"

namespace velactl {

std::vector<NamedResult> RunChecks(Context& context) {
    DoctorContext doctor(context);
    std::vector<NamedResult> results;
    for (const Check& check : Checks()) results.push_back({check.name, check.run(doctor)});
    return results;
}

const char* Word(Outcome outcome) {
    switch (outcome) {
        case Outcome::kOk:
            return "ok";
        case Outcome::kFailed:
            return "failed";
        default:
            return "skipped";
    }
}

std::string DoctorText(const std::vector<NamedResult>& results) {
    std::string text;
    for (const auto& [name, result] : results) {
        std::string line = Word(result.outcome);
        line.resize(9, ' ');
        text += line + name + ": " + result.finding + '\n';
        if (!result.nextStep.empty()) {
            text += std::string(9, ' ') + "next: " + result.nextStep + '\n';
        }
    }
    return text;
}

}  // namespace velactl
