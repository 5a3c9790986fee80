// velactl doctor
#include "tools/velactl/Checks.h"
#include "tools/velactl/Command.h"

namespace velactl {
namespace {

ExitCode Examine(Context& context) {
    DoctorContext doctor(context);
    bool allOk = true;
    for (const Check& check : Checks()) {
        const CheckResult result = check.run(doctor);
        context.Print({{"check", check.name},
                       {"result", Word(result.outcome)},
                       {"finding", result.finding},
                       {"next", result.nextStep}},
                      DoctorText({{check.name, result}}));
        allOk = allOk && result.outcome != Outcome::kFailed;
    }
    return allOk ? kDone : kFailed;
}

}  // namespace

Run DeclareDoctor(CLI::App&) { return Examine; }

}  // namespace velactl
