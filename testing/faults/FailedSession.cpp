#include "testing/faults/FailedSession.h"

#include <map>

#include "testing/faults/FailedScan.h"

namespace faults {
namespace {

const std::string kSharingViolation = "32";

// The session opens at the second attempt, which the script makes in every run.
Outcome OpeningFails(const std::string& line, const std::string& result) {
    return {
        {line, "Init -> " + result},
        {"Init -> 1", "{INFO @ Initialize} Initialize re-initialize, return true immediately."}};
}

Outcome HapticOpeningFails(const std::string& line) {
    return {
        {line, "InitHapticTP -> 0"},
        {"InitHapticTP -> 1", "{INFO @ Initialize} Re-initialize, return succeeded immediately."}};
}

// A step that reads or writes a feature: the line it logs at its end, and the outcome of the next
// step when the feature was not written.
struct FeatureStep {
    std::string function;
    std::string result;  // without a failure
    std::string endLine;
    Outcome unwritten;
    const char* errorFormat = "the last error (";  // after "HidD_GetFeature failed, "
};

const std::string kMode300 = "{INFO @ GetClickMode} GetClickMode (300) succeed.";
const std::string kMode0 = "{INFO @ GetClickMode} GetClickMode (0) succeed.";

const std::map<std::string, FeatureStep> kFeatureSteps = {
    {"SetClickMode(1, 300)",
     {"SetClickMode",
      "1",
      "{INFO @ SetClickMode} SetClickMode (1, 300) completed.",
      {{"GetClickMode -> 0", kMode0}, {"GetClickMode -> 1", kMode300}},
      "the last error( "}},
    {"SetClickMode(0, 300)",
     {"SetClickMode",
      "1",
      "{INFO @ SetClickMode} SetClickMode (0, 300) completed.",
      {{"GetClickMode of mode 0 -> 1", kMode300}, {"GetClickMode of mode 0 -> 0", kMode0}},
      "the last error( "}},
    {"SetClickMode(7, 5)",
     {"SetClickMode",
      "1",
      "{INFO @ SetClickMode} SetClickMode (7, 5) completed.",
      {},
      "the last error( "}},
    {"GetClickMode", {"GetClickMode", "1", kMode300, {}}},
    {"GetClickMode of mode 0", {"GetClickMode", "0", kMode0, {}}},
    {"SetHapticTPIntensityLevel(50)",
     {"SetIntensityLevel",
      "1",
      "{INFO @ SetIntensityLevel} CHapticTouchpadHID SetIntensityLevel(50) succeeded.",
      {{"GetHapticTPIntensityLevel after the set -> 42",
        "{INFO @ GetIntensityLevel} CHapticTouchpadHID GetIntensityLevel(42) succeeded."},
       {"GetHapticTPIntensityLevel after the set -> 50",
        "{INFO @ GetIntensityLevel} CHapticTouchpadHID GetIntensityLevel(50) succeeded."}},
      "GetLastError("}},
    {"GetHapticTPIntensityLevel",
     {"GetIntensityLevel",
      "42",
      "{INFO @ GetIntensityLevel} CHapticTouchpadHID GetIntensityLevel(42) succeeded.",
      {},
      "GetLastError("}},
    {"GetHapticTPIntensityLevel after the set",
     {"GetIntensityLevel",
      "50",
      "{INFO @ GetIntensityLevel} CHapticTouchpadHID GetIntensityLevel(50) succeeded.",
      {},
      "GetLastError("}},
};

bool IsHaptic(const FailedCall& call) { return call.Step().find("Haptic") != std::string::npos; }

// `line` is what the failing operation logs after its function's name.
Outcome FeatureFails(const FailedCall& call, const std::string& line, bool endIsLogged) {
    const FeatureStep& step = kFeatureSteps.at(call.Step());
    Outcome outcome = step.unwritten;
    outcome.added.push_back("{ERROR @ " + step.function + "} " + line);
    outcome.added.push_back(call.Step() + " -> 0");
    outcome.missing.push_back(call.Step() + " -> " + step.result);
    if (!endIsLogged) outcome.missing.push_back(step.endLine);
    return outcome;
}

std::string ValueFailure(const FailedCall& call) {
    const std::string reason = IsHaptic(call) ? "GetLastError(" + call.Error() + ")."
                                              : "the status (" + call.HexStatus() + ")";
    return call.Call().function + " failed, " + reason;
}

}  // namespace

Outcome CreateFileFails(const FailedCall& call) {
    const std::string line =
        "{ERROR @ Initialize} Initialize failed, CreateFile failed GetLastError(" + call.Error() +
        ").";
    if (call.Has("0xc0000000")) {
        return OpeningFails(line, call.Error() == kSharingViolation ? "3" : "2");
    }
    // A scan queries what it opens.
    if (call.Behind()->function == "HidD_GetPreparsedData") return CandidateIsSkipped(call);
    return HapticOpeningFails(line);
}

Outcome CreateEventFails(const FailedCall& call) {
    return OpeningFails("{ERROR @ Initialize} Initialize failed, CreateEvent failed GetLastError(" +
                            call.Error() + ").",
                        "2");
}

Outcome OpenMutexFails(const FailedCall& call) {
    constexpr std::uint32_t kDenied = 5;
    if (call.Step() != "IsVelaPresent" || call.fault.error != kDenied) return {};
    // "Access denied" means that another user's session has the touchpad, so no scan is made.
    return {{},
            {"{INFO @ ScanHIDInformation} GetHIDInformation PID (0x1234) FW version(0x63).",
             "{INFO @ ~CHIDInformation} CHIDInformation clear device UsagePage (ff80),  Usage (80) "
             "information"}};
}

Outcome GetProductStringFails(const FailedCall& call) {
    // The next query reads the string again.
    Outcome outcome{{call.fault.result ? "{INFO @ IsDetachable} Product string: "
                                       : "{WARNING @ IsDetachable} GetProductString failed, "
                                         "GetLastError(" +
                                             call.Error() + ")."},
                    {}};
    // A touchpad without a product string counts as detachable.
    if (call.Step() != "IsDetachable" || call.IsDetachable()) return outcome;
    outcome.added.emplace_back("IsDetachable -> 1");
    outcome.missing.emplace_back("IsDetachable -> 0");
    return outcome;
}

Outcome GetPreparsedDataFails(const FailedCall& call) {
    if (call.Before() != nullptr && call.Before()->function == "CreateFileW") {
        return CandidateIsSkipped(call);
    }
    // A detachable touchpad whose preparsed data cannot be read counts as gone: it gets no report.
    if (call.Step() == "SetVelaBrightness(7) while disabled") {
        return {{},
                {"{INFO @ Update} Can't update Vela state because TemporaryDisable (1) or "
                 "TabletModeDisable (0)"}};
    }
    if (call.Step() != "IsVelaPresent while open" || call.IsGone()) return {};
    return {{"IsVelaPresent while open -> 0"}, {"IsVelaPresent while open -> 1"}};
}

Outcome GetFeatureFails(const FailedCall& call) {
    const FeatureStep& step = kFeatureSteps.at(call.Step());
    const auto line = [&](const std::string& error) {
        const std::string dot = IsHaptic(call) ? "." : "";
        return "HidD_GetFeature failed, " + (step.errorFormat + error) + ")" + dot;
    };
    if (!call.IsGone()) return FeatureFails(call, line(call.Error()), false);
    const std::string origin = "{ERROR @ " + step.function + "} ";
    return {{origin + line(call.Error())}, {origin + line("1167")}};
}

Outcome SetFeatureFails(const FailedCall& call) {
    const bool haptic = IsHaptic(call);
    const std::string line = haptic
                                 ? "HidD_SetFeature failed, GetLastError(" + call.Error() + ")."
                                 : "HidD_SetFeature failed, the last error (" + call.Error() + ")";
    return FeatureFails(call, line, !haptic);
}

Outcome SetFeatureValueFails(const FailedCall& call) {
    return FeatureFails(call, ValueFailure(call), !IsHaptic(call));
}

Outcome GetFeatureValueFails(const FailedCall& call) {
    return FeatureFails(call, ValueFailure(call), false);
}

}  // namespace faults
