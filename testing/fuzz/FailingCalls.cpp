#include "testing/fuzz/FailingCalls.h"

#include "testing/kit/native/PlausibleFaults.h"

namespace fuzz {
namespace {

// The functions that a session calls, without CloseHandle: a handle that stays open would hold the
// touchpad, and no session could open it again.
constexpr const char* kFunctions[] = {
    "CreateFileW",
    "ReadFile",
    "WriteFile",
    "GetOverlappedResult",
    "WaitForSingleObject",
    "CreateEventW",
    "OpenMutexW",
    "CreateMutexW",
    "GlobalAlloc",
    "GetModuleFileNameW",
    "GetPrivateProfileSectionNamesW",
    "SetupDiGetClassDevsW",
    "SetupDiEnumDeviceInterfaces",
    "SetupDiGetDeviceInterfaceDetailW",
    "HidD_GetAttributes",
    "HidD_GetPreparsedData",
    "HidD_GetProductString",
    "HidD_GetFeature",
    "HidD_SetFeature",
    "HidP_GetCaps",
    "HidP_GetValueCaps",
    "HidP_GetButtonCaps",
    "HidP_MaxUsageListLength",
    "HidP_GetUsages",
    "HidP_SetUsages",
    "HidP_UnsetUsages",
    "HidP_GetUsageValue",
    "HidP_SetUsageValue",
};

constexpr unsigned kMaximumSkipped = 8;

}  // namespace

void FailACall(simulator::Machine& machine, FuzzInput& input) {
    const char* const function = input.OneOf(kFunctions);
    // Some waits have no time limit, so none of them is made to time out.
    const simulator::Fault fault = input.OneOf(kit::PlausibleFaults(function, "infinite"));
    machine.FailNext(function, fault, input.Byte() % kMaximumSkipped);
}

void StopFailing(simulator::Machine& machine) {
    for (const char* const function : kFunctions) machine.StopFailing(function);
}

}  // namespace fuzz
