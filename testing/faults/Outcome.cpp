#include "testing/faults/Outcome.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <sstream>

#include "testing/faults/FailedCall.h"
#include "testing/faults/FailedReports.h"
#include "testing/faults/FailedScan.h"
#include "testing/faults/FailedSession.h"

namespace faults {
namespace {

Outcome Unnoticed(const FailedCall&) { return {}; }

// One entry for each platform function.
const std::map<std::string, Outcome (*)(const FailedCall&)> kOutcomes = {
    {"CloseHandle", Unnoticed},
    {"CreateEventW", CreateEventFails},
    {"CreateFileW", CreateFileFails},
    {"CreateMutexW", Unnoticed},
    {"DeleteFileW", Unnoticed},
    {"GetModuleFileNameW", Unnoticed},
    {"GetOverlappedResult", OverlappedResultFails},
    {"GetPrivateProfileSectionNamesW", Unnoticed},
    {"GlobalAlloc", PathIsLost},
    {"GlobalFree", Unnoticed},
    {"HidD_FreePreparsedData", Unnoticed},
    {"HidD_GetAttributes", CandidateIsSkipped},
    {"HidD_GetFeature", GetFeatureFails},
    {"HidD_GetPreparsedData", GetPreparsedDataFails},
    {"HidD_GetProductString", GetProductStringFails},
    {"HidD_SetFeature", SetFeatureFails},
    {"HidP_GetButtonCaps", CapabilityListFails},
    {"HidP_GetCaps", CandidateIsSkipped},
    {"HidP_GetUsages", GetUsagesFails},
    {"HidP_GetUsageValue", GetUsageValueFails},
    {"HidP_GetValueCaps", CapabilityListFails},
    {"HidP_MaxUsageListLength", MaxUsageListLengthFails},
    {"HidP_SetUsages", SetUsagesFails},
    {"HidP_SetUsageValue", SetUsageValueFails},
    {"HidP_UnsetUsages", UnsetUsagesFails},
    {"MoveFileW", Unnoticed},
    {"OpenMutexW", OpenMutexFails},
    {"ReadFile", ReadFails},
    {"SetupDiDestroyDeviceInfoList", Unnoticed},
    {"SetupDiEnumDeviceInterfaces", EnumerationFails},
    {"SetupDiGetClassDevsW", DeviceListFails},
    {"SetupDiGetDeviceInterfaceDetailW", PathIsLost},
    {"WaitForSingleObject", WaitFails},
    {"WriteFile", WriteFails},
};

bool IsTrouble(const std::string& event) {
    return event.compare(0, 7, "{ERROR ") == 0 || event.compare(0, 9, "{WARNING ") == 0;
}

std::vector<std::string> Troubles(const std::vector<std::string>& events) {
    std::vector<std::string> troubles;
    std::copy_if(events.begin(), events.end(), std::back_inserter(troubles), IsTrouble);
    return troubles;
}

// Returns a line for each element of `from` that is not in `other`.
std::string Difference(const std::vector<std::string>& from, const std::vector<std::string>& other,
                       const char* mark) {
    std::vector<std::string> lines;
    std::set_difference(from.begin(), from.end(), other.begin(), other.end(),
                        std::back_inserter(lines));
    std::string text;
    for (const std::string& line : lines) text += mark + line + "\n";
    return text;
}

}  // namespace

Outcome OutcomeOf(const std::vector<WatchedCall>& calls, std::size_t index,
                  const simulator::Fault& fault) {
    return kOutcomes.at(calls[index].function)({calls, index, fault});
}

std::string Compare(const std::vector<std::string>& events, const std::vector<std::string>& clean,
                    const Outcome& outcome) {
    std::vector<std::string> missing = outcome.missing;
    std::vector<std::string> expected;
    std::sort(missing.begin(), missing.end());
    std::set_difference(clean.begin(), clean.end(), missing.begin(), missing.end(),
                        std::back_inserter(expected));
    expected.insert(expected.end(), outcome.added.begin(), outcome.added.end());
    std::sort(expected.begin(), expected.end());
    const bool all = outcome.restIsTheSame;
    const std::vector<std::string> seen = all ? events : Troubles(events);
    if (!all) expected = Troubles(expected);
    return Difference(expected, seen, "  expected: ") +
           Difference(seen, expected, "  unexpected: ");
}

}  // namespace faults
