// velactl doctor
#include "tools/velactl/Checks.h"
#include "tools/velactl/Command.h"

namespace velactl {
namespace {

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

// "failed   touchpad: none of 2 HID collections is the touchpad", and below it the next step.
std::string Line(const char* name, const CheckResult& result) {
    std::string line = Word(result.outcome);
    line.resize(9, ' ');
    line += std::string(name) + ": " + result.finding + '\n';
    if (!result.nextStep.empty()) line += std::string(9, ' ') + "next: " + result.nextStep + '\n';
    return line;
}

ExitCode Examine(Context& context) {
    DoctorContext doctor(context);
    bool allOk = true;
    for (const Check& check : Checks()) {
        const CheckResult result = check.run(doctor);
        context.Print({{"check", check.name},
                       {"result", Word(result.outcome)},
                       {"finding", result.finding},
                       {"next", result.nextStep}},
                      Line(check.name, result));
        allOk = allOk && result.outcome != Outcome::kFailed;
    }
    return allOk ? kDone : kFailed;
}

}  // namespace

Run DeclareDoctor(CLI::App&) { return Examine; }

}  // namespace velactl
