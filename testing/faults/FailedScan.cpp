#include "testing/faults/FailedScan.h"

#include <map>

namespace faults {
namespace {

const std::string kFound =
    "{INFO @ ScanHIDInformation} GetHIDInformation PID (0x1234) FW version(0x63).";
const std::string kHapticFound =
    "{INFO @ ScanHIDInformation} GetHIDInformation PID (0xd05) FW version(0x102).";

std::string Cleared(const std::string& page, const std::string& usage) {
    return "{INFO @ ~CHIDInformation} CHIDInformation clear device UsagePage (" + page +
           "),  Usage (" + usage + ") information";
}

const std::string kCleared = Cleared("ff80", "80");
const std::string kHapticCleared = Cleared("d", "5");
const std::string kEmptyCleared = Cleared("0", "0");
const std::string kStart =
    "{INFO @ Initialize} ================= CTandrelHID initialize start =================";
const std::string kReinitialize =
    "{INFO @ Initialize} Initialize re-initialize, return true immediately.";

// The outcomes of a scan that finds nothing, by the step that scans. A session that is not opened
// is opened by the script's second attempt.
const std::map<std::string, Outcome> kNotFound = {
    {"IsVelaPresent",
     {{"IsVelaPresent -> 0", kEmptyCleared}, {"IsVelaPresent -> 1", kFound, kCleared}}},
    {"Init",
     {{"Init -> 2", kEmptyCleared}, {"Init -> 1", kFound, kStart, kReinitialize, kCleared}}},
    // The session stays open.
    {"Init again",
     {{"Init again -> 2", kEmptyCleared},
      {"Init again -> 1", kFound, kStart, kReinitialize, kCleared}}},
    // No touchpad is plugged in.
    {"Init without a touchpad", {}},
    {"IsHapticTPPresent",
     {{"IsHapticTPPresent -> 0", kEmptyCleared},
      {"IsHapticTPPresent -> 1", kHapticFound, kHapticCleared}}},
    {"InitHapticTP",
     {{"InitHapticTP -> 0", kEmptyCleared,
       "{WARNING @ Initialize} GetValueCaps for HidP_Feature, USAGE_INTENSITY failed"},
      {"InitHapticTP -> 1", kHapticFound, kHapticCleared,
       "{INFO @ Initialize} Re-initialize, return succeeded immediately."}}},
    // The session is open already and does not use the scan's result.
    {"InitHapticTP again", {{kEmptyCleared}, {kHapticFound, kHapticCleared}}},
};

Outcome NotFound(const FailedCall& call) { return kNotFound.at(call.Step()); }

Outcome With(const std::string& line, Outcome outcome) {
    outcome.added.push_back(line);
    return outcome;
}

std::string LastArgument(const WatchedCall& call) {
    return call.arguments.substr(call.arguments.rfind(' ') + 1);
}

constexpr const char* kEnumerate = "SetupDiEnumDeviceInterfaces";

}  // namespace

Outcome DeviceListFails(const FailedCall& call) {
    return With("{ERROR @ GetHidDevicePathList} SetupDiGetClassDevs faild, last error (" +
                    call.Error() + ").",
                NotFound(call));
}

Outcome EnumerationFails(const FailedCall& call) {
    constexpr std::uint32_t kNoMoreItems = 259;
    // The touchpad is the second interface; the scan keeps those enumerated before a failure.
    const bool lost = LastArgument(call.Call()) == "0" || LastArgument(call.Call()) == "1";
    const Outcome outcome = lost ? NotFound(call) : Outcome{};
    if (call.fault.error == kNoMoreItems) return outcome;
    return With("{ERROR @ GetHidDevicePathList} SetupDiEnumDeviceInterfaces faild, last error (" +
                    call.Error() + ").",
                outcome);
}

Outcome PathIsLost(const FailedCall& call) {
    return LastArgument(*call.Last(kEnumerate)) == "1" ? NotFound(call) : Outcome{};
}

Outcome CandidateIsSkipped(const FailedCall& call) {
    const WatchedCall& opened = *call.Last("CreateFileW");
    // The other device is enumerated first, and rejected in any case.
    std::size_t earlierScans = 0;
    for (std::size_t i = 0; i <= call.index; ++i) {
        const WatchedCall& other = call.calls[i];
        if (other.function == "CreateFileW" && other.step == opened.step) ++earlierScans;
    }
    return earlierScans == 1 ? Outcome{} : NotFound(call);
}

Outcome CapabilityListFails(const FailedCall& call) {
    const std::string function = call.Call().function == "HidP_GetValueCaps"
                                     ? "FillValueCapUsagePages"
                                     : "FillButtonCapUsagePages";
    return With("{ERROR @ " + function + "} " + function +
                    " HidP_GetValueCaps faild, last error (" + call.Error() + ").",
                NotFound(call));
}

}  // namespace faults
