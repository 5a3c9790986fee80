#include "testing/kit/native/PlausibleFaults.h"

#include <windows.h>

#include <hidpi.h>

#include <map>

namespace kit {
namespace {

using simulator::Fault;

// Errors, by what the platform means with them:
//   2 and 3 not found, 5 denied, 6 no valid handle, 8 and 14 out of memory, 13 bad data, 31 the
//   device does not work, 32 held by another process, 87 bad parameter, 121 time limit of the bus,
//   122 buffer too small, 259 no more items, 433 no such device, 995 aborted, 1167 not connected,
//   1450 out of resources, 1784 bad buffer.
std::vector<Fault> Errors(std::initializer_list<std::uint32_t> errors) {
    std::vector<Fault> faults;
    for (const std::uint32_t error : errors) faults.push_back(Fault::Error(error));
    return faults;
}

// Calls that return a status do not set the last error. The faults set one that nothing else sets,
// so that log lines with it can be attributed.
std::vector<Fault> Statuses(std::initializer_list<NTSTATUS> statuses) {
    constexpr std::uint32_t kLastError = 1168;
    std::vector<Fault> faults;
    for (const NTSTATUS status : statuses) faults.push_back(Fault::Result(status, kLastError));
    return faults;
}

std::vector<Fault> With(std::vector<Fault> faults, Fault more) {
    faults.push_back(more);
    return faults;
}

const std::vector<Fault> kReportStatuses =
    Statuses({HIDP_STATUS_INVALID_PREPARSED_DATA, HIDP_STATUS_INVALID_REPORT_LENGTH,
              HIDP_STATUS_USAGE_NOT_FOUND, HIDP_STATUS_INCOMPATIBLE_REPORT_ID});
const std::vector<Fault> kListStatuses =
    Statuses({HIDP_STATUS_INVALID_PREPARSED_DATA, HIDP_STATUS_INVALID_REPORT_TYPE,
              HIDP_STATUS_BUFFER_TOO_SMALL, HIDP_STATUS_USAGE_NOT_FOUND});
const std::vector<Fault> kFeatureErrors = Errors({5, 31, 87, 121, 995, 1167, 1784});
const std::vector<Fault> kNone;

const std::map<std::string, std::vector<Fault>> kFaults = {
    {"CreateFileW", Errors({2, 3, 5, 32, 433, 1167})},
    {"ReadFile", Errors({5, 6, 31, 87, 995, 1167, 1784})},
    {"WriteFile", Errors({5, 6, 31, 87, 121, 995, 1167, 1784})},
    {"GetOverlappedResult", Errors({5, 31, 121, 995, 1167})},
    // For a wait with a time limit; kEndlessWaitFaults is for one without.
    {"WaitForSingleObject", With(Errors({6}), Fault::Result(WAIT_TIMEOUT, ERROR_IO_PENDING))},
    {"CreateEventW", Errors({8, 1450})},
    // The agent sets its own valid event, which cannot fail.
    {"SetEvent", kNone},
    {"OpenMutexW", Errors({2, 5, 6, 8})},
    {"CreateMutexW", Errors({5, 6, 8})},
    {"CloseHandle", Errors({6})},
    {"DeleteFileW", Errors({2, 3, 5, 32})},
    {"MoveFileW", Errors({2, 5, 32, 183})},
    {"GlobalAlloc", Errors({8, 14})},
    {"GlobalFree", Errors({6})},
    {"GetModuleFileNameW", With(Errors({126}), Fault::Result(260, ERROR_INSUFFICIENT_BUFFER))},
    {"GetPrivateProfileSectionNamesW", Errors({2, 3, 5, 32})},
    {"SetupDiGetClassDevsW", Errors({5, 8, 13, 1450})},
    {"SetupDiEnumDeviceInterfaces", Errors({5, 13, 87, 259})},
    // Only a result of exactly 1 is a success.
    {"SetupDiGetDeviceInterfaceDetailW", With(Errors({5, 13, 87, 122, 433}), Fault::Result(2))},
    {"SetupDiDestroyDeviceInfoList", Errors({6})},
    // The function returns void and reads a constant.
    {"HidD_GetHidGuid", kNone},
    {"HidD_GetAttributes", Errors({5, 6, 31, 87, 1167})},
    {"HidD_GetPreparsedData", Errors({5, 6, 8, 31, 1167})},
    {"HidD_FreePreparsedData", Errors({87})},
    // A success may leave the buffer as it was.
    {"HidD_GetProductString", With(Errors({5, 31, 87, 1167, 1784}), Fault::Result(TRUE))},
    {"HidD_GetFeature", kFeatureErrors},
    {"HidD_SetFeature", kFeatureErrors},
    {"HidP_GetCaps", Statuses({HIDP_STATUS_INVALID_PREPARSED_DATA, HIDP_STATUS_INTERNAL_ERROR})},
    {"HidP_GetValueCaps", kListStatuses},
    {"HidP_GetButtonCaps", kListStatuses},
    {"HidP_MaxUsageListLength", {Fault::Result(0)}},
    {"HidP_GetUsages", With(kReportStatuses, Statuses({HIDP_STATUS_BUFFER_TOO_SMALL}).front())},
    {"HidP_SetUsages", With(kReportStatuses, Statuses({HIDP_STATUS_BUFFER_TOO_SMALL}).front())},
    {"HidP_UnsetUsages", With(kReportStatuses, Statuses({HIDP_STATUS_BUTTON_NOT_PRESSED}).front())},
    {"HidP_GetUsageValue", kReportStatuses},
    // The warning of an empty value is a failure too.
    {"HidP_SetUsageValue", With(kReportStatuses, Statuses({HIDP_STATUS_NULL}).front())},
};

const std::vector<Fault> kEndlessWaitFaults = Errors({6});

}  // namespace

std::vector<Fault> PlausibleFaults(const std::string& function, const std::string& arguments) {
    const bool endless = arguments.find("infinite") != std::string::npos;
    if (function == "WaitForSingleObject" && endless) return kEndlessWaitFaults;
    return kFaults.at(function);
}

std::string ToText(const Fault& fault) {
    const std::string error = "error " + std::to_string(fault.error);
    if (!fault.result) return error;
    return "result " + std::to_string(*fault.result) + " with " + error;
}

}  // namespace kit
