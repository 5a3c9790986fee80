#include "testing/faults/FailedReports.h"

#include "testing/faults/FailedSession.h"

namespace faults {
namespace {

const std::string kWrite = "{ERROR @ WriteOutputReportInternal} ";
const std::string kLights = "{ERROR @ UpdateLedCtrl} ";

std::string WriteFailed(const std::string& error) {
    return kWrite + "Write File failed with last error (" + error + ")";
}

// Logs nothing, but presses and states no longer reach the session.
Outcome InputIsLost() { return {{}, {}, false}; }

bool IsReaders(const FailedCall& call) {
    const WatchedCall* const wait = call.Last("WaitForSingleObject");
    return wait != nullptr && wait->arguments.find("infinite") != std::string::npos;
}

bool IsLastOfItsThread(const FailedCall& call) {
    for (const WatchedCall* next = call.Behind(); next != nullptr;) {
        if (next->function == call.Call().function) return false;
        next = Neighbour(call.calls, static_cast<std::size_t>(next - call.calls.data()), 1);
    }
    return true;
}

// The lights' values are set pairwise, the second light first.
enum class Light { FirstOfTwo, SecondOfTwo, Only, Breathing };

bool SetsUsage(const WatchedCall* call, const std::string& usage) {
    return call != nullptr && call->function == "HidP_SetUsageValue" &&
           call->arguments.find(", " + usage + ", ") != std::string::npos;
}

Light LightOf(const FailedCall& call) {
    if (call.Has(", 0xa2, ")) return Light::Breathing;
    if (call.Has(", 0x20, ") || call.Has(", 0x26, ")) return Light::SecondOfTwo;
    if (call.Has(", 0x21, ") || call.Has(", 0x27, ")) return Light::FirstOfTwo;
    // A button with one light is switched off as if it had two.
    const std::string usage = call.Has(", 0x24, ") ? "0x24" : "0x22";
    if (SetsUsage(call.Before(), usage)) return Light::FirstOfTwo;
    return SetsUsage(call.Behind(), usage) ? Light::SecondOfTwo : Light::Only;
}

}  // namespace

Outcome WriteFails(const FailedCall& call) {
    if (call.IsGone()) return {{WriteFailed(call.Error())}, {WriteFailed("1167")}};
    return {{WriteFailed(call.Error())}, {}};
}

Outcome ReadFails(const FailedCall&) { return InputIsLost(); }

Outcome WaitFails(const FailedCall& call) {
    // GetOverlappedResult waits instead, so no report is lost, except by the last wait, which the
    // closing ends.
    if (IsReaders(call)) return IsLastOfItsThread(call) ? InputIsLost() : Outcome{};
    const std::string line =
        call.fault.result ? "WaitForSingleObject timeout"
                          : "WaitForSingleObject dwRet = -1, the last error(" + call.Error() + ")";
    return {{kWrite + line, WriteFailed(call.Error())}, {}};
}

Outcome OverlappedResultFails(const FailedCall& call) {
    if (IsReaders(call)) return InputIsLost();
    return {{kWrite + "GetOverlappedResult failed, the last error (" + call.Error() + ")",
             WriteFailed(call.Error())},
            {}};
}

Outcome MaxUsageListLengthFails(const FailedCall& call) {
    // The session parses no report with a button. The last error is still that of the last read.
    constexpr const char* kLine =
        "{WARNING @ HandleInputReport} HidP_GetUsages HidP_Input failed, GetLastError(997).";
    Outcome outcome = InputIsLost();
    for (const WatchedCall& other : call.calls) {
        const bool hasButton = other.step.find("firmware state") == std::string::npos;
        if (other.function == "HidP_GetUsages" && hasButton) outcome.added.emplace_back(kLine);
    }
    return outcome;
}

Outcome GetUsagesFails(const FailedCall& call) {
    Outcome outcome = InputIsLost();
    outcome.added.push_back(
        "{WARNING @ HandleInputReport} HidP_GetUsages HidP_Input failed, GetLastError(" +
        call.Error() + ").");
    return outcome;
}

Outcome GetUsageValueFails(const FailedCall& call) {
    // A firmware state that cannot be read counts as all clear.
    return call.Has("feature") ? GetFeatureValueFails(call) : InputIsLost();
}

Outcome SetUsageValueFails(const FailedCall& call) {
    if (call.Has("feature")) return SetFeatureValueFails(call);
    const Light light = LightOf(call);
    if (light == Light::SecondOfTwo) return {};
    // For a dark report the success status 1114112 is logged, whatever the call returned.
    const std::string status = call.Call().active ? call.Status() : "1114112";
    return {{kLights + "HidP_SetUsageValue failed, status : " + status}, {}};
}

Outcome SetUsagesFails(const FailedCall& call) {
    if (!call.Has("[0x30]")) {
        return {{kLights + "HidP_SetUsages failed, status : " + call.Status()}, {}};
    }
    return {{"{WARNING @ UpdateVelaState} HidP_SetUsages HidP_Output USAGE_REQUEST GetLastError(" +
                 call.Error() + ").",
             call.Step() + " -> 0"},
            {"{INFO @ UpdateVelaState} UpdateVelaState.", call.Step() + " -> 1"}};
}

Outcome UnsetUsagesFails(const FailedCall& call) {
    // In a new report no usage is set, so this status is normal.
    constexpr std::int64_t kButtonNotPressed = static_cast<std::int32_t>(0xC011000F);
    if (call.fault.result == kButtonNotPressed) return {};
    return {{kLights + "HidP_UnsetUsages failed, status : " + call.Status()}, {}};
}

}  // namespace faults
