#include "testing/unit/simulator/SimulatorTest.h"

#include <setupapi.h>

#include <functional>
#include <utility>

namespace simulator_test {
namespace {

using simulator::Call;

class ScriptedFaults : public SimulatorTest {
 protected:
    HANDLE event_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
};

TEST_F(ScriptedFaults, ServeOnceInTheirOrder) {
    machine_.FailNext("SetEvent", Fault::Error(5));
    machine_.FailNext("SetEvent", Fault::Error(6));
    EXPECT_FALSE(SetEvent(event_));
    EXPECT_EQ(GetLastError(), 5U);
    EXPECT_FALSE(SetEvent(event_));
    EXPECT_EQ(GetLastError(), 6U);
    EXPECT_FALSE(IsSignalled(event_));
    EXPECT_TRUE(SetEvent(event_));
    EXPECT_TRUE(IsSignalled(event_));
}

TEST_F(ScriptedFaults, SkipCallsThatWork) {
    machine_.FailNext("SetEvent", Fault::Error(5), 2);
    machine_.FailNext("SetEvent", Fault::Error(6), 1);
    const std::vector<BOOL> expected{TRUE, TRUE, FALSE, TRUE, FALSE, TRUE};
    for (const BOOL works : expected) EXPECT_EQ(SetEvent(event_), works);
}

TEST_F(ScriptedFaults, ConcernOneFunction) {
    machine_.FailNext("SetEvent", Fault::Error(5));
    EXPECT_TRUE(ResetEvent(event_));
    EXPECT_FALSE(SetEvent(event_));
}

TEST_F(ScriptedFaults, MayLastUntilTheyAreStopped) {
    machine_.FailAlways("SetEvent", Fault::Error(5));
    EXPECT_FALSE(SetEvent(event_));
    EXPECT_FALSE(SetEvent(event_));
    machine_.StopFailing("SetEvent");
    EXPECT_TRUE(SetEvent(event_));
}

TEST_F(ScriptedFaults, MayBeAPolicyOfTheTest) {
    machine_.FailNext("SetEvent", Fault::Error(5));
    machine_.SetFaultPolicy([](const Call& call) -> std::optional<Fault> {
        if (call.Text() == "SetEvent(event#1)") return Fault::Error(31);
        return std::nullopt;
    });
    EXPECT_FALSE(SetEvent(event_));
    EXPECT_EQ(GetLastError(), 5U);
    EXPECT_FALSE(SetEvent(event_));
    EXPECT_EQ(GetLastError(), 31U);
    EXPECT_TRUE(ResetEvent(event_));
    machine_.SetFaultPolicy(nullptr);
    EXPECT_TRUE(SetEvent(event_));
}

TEST_F(ScriptedFaults, MayQueryTheMachineFromThePolicy) {
    machine_.SetFaultPolicy([this](const Call& call) -> std::optional<Fault> {
        if (machine_.CountCalls(call.function) == 2) return Fault::Error(31);
        return std::nullopt;
    });
    EXPECT_TRUE(SetEvent(event_));
    EXPECT_FALSE(SetEvent(event_));
    EXPECT_TRUE(SetEvent(event_));
}

TEST_F(ScriptedFaults, MayNameTheResult) {
    machine_.FailNext("WaitForSingleObject", Fault::Result(258));
    SetEvent(event_);
    SetLastError(4711);
    EXPECT_EQ(WaitForSingleObject(event_, INFINITE), WAIT_TIMEOUT);
    EXPECT_EQ(GetLastError(), 0U);

    machine_.FailNext("HidD_GetProductString", Fault::Result(TRUE));
    wchar_t text[2] = {L'?', L'?'};
    EXPECT_TRUE(HidD_GetProductString(nullptr, text, sizeof text));
    EXPECT_EQ(text[0], L'?');

    machine_.FailNext("CreateFileW", Fault::Result(0x10, 5));
    EXPECT_EQ(CreateFileW(L"x", 0, 0, nullptr, OPEN_EXISTING, 0, nullptr),
              reinterpret_cast<HANDLE>(std::uintptr_t{0x10}));
    EXPECT_EQ(GetLastError(), 5U);
}

TEST_F(ScriptedFaults, OfCallsThatReturnAStatusLeaveTheLastErrorAlone) {
    machine_.FailNext("HidP_GetCaps", Fault::Status(HIDP_STATUS_USAGE_NOT_FOUND));
    machine_.FailNext("HidP_GetCaps", Fault::Error(31));
    SetLastError(4711);
    HIDP_CAPS caps{};
    EXPECT_EQ(HidP_GetCaps(nullptr, &caps), HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(GetLastError(), 4711U);
    EXPECT_EQ(HidP_GetCaps(nullptr, &caps), HIDP_STATUS_INTERNAL_ERROR);
    EXPECT_EQ(GetLastError(), 31U);
}

TEST_F(ScriptedFaults, AreGoneAfterAReset) {
    machine_.FailNext("SetEvent", Fault::Error(5));
    machine_.FailAlways("ResetEvent", Fault::Error(5));
    machine_.SetFaultPolicy([](const Call&) { return Fault::Error(31); });
    machine_.Reset();
    EXPECT_TRUE(SetEvent(event_));
    EXPECT_TRUE(ResetEvent(event_));
}

TEST_F(ScriptedFaults, AreRecordedLikeAnyCall) {
    machine_.ForgetCalls();
    machine_.FailNext("SetEvent", Fault::Error(5));
    SetEvent(event_);
    EXPECT_EQ(machine_.CountCalls("SetEvent"), 1U);
}

// A call of each function, and its failure value when a fault names no result.
struct FailingCall {
    const char* function;
    std::function<std::intptr_t()> call;
    std::intptr_t failureValue;
};

TEST_F(ScriptedFaults, GiveTheFailureValueOfEachFunction) {
    wchar_t text[4] = {};
    BYTE bytes[4] = {};
    OVERLAPPED overlapped{};
    const auto number = [](auto handle) { return reinterpret_cast<std::intptr_t>(handle); };
    const FailingCall rows[] = {
        {"CloseHandle", [&] { return CloseHandle(event_); }, FALSE},
        {"CreateEventW", [&] { return number(CreateEventW(nullptr, TRUE, TRUE, nullptr)); }, 0},
        {"SetEvent", [&] { return SetEvent(event_); }, FALSE},
        {"ResetEvent", [&] { return ResetEvent(event_); }, FALSE},
        {"WaitForSingleObject", [&] { return WaitForSingleObject(event_, 0); }, 0xFFFFFFFF},
        {"OpenMutexW", [&] { return number(OpenMutexW(0, FALSE, L"m")); }, 0},
        {"CreateMutexW", [&] { return number(CreateMutexW(nullptr, FALSE, L"m")); }, 0},
        {"CreateFileW", [&] { return number(CreateFileW(L"p", 0, 0, nullptr, 3, 0, nullptr)); },
         -1},
        {"ReadFile", [&] { return ReadFile(nullptr, bytes, 4, nullptr, &overlapped); }, FALSE},
        {"WriteFile", [&] { return WriteFile(nullptr, bytes, 4, nullptr, &overlapped); }, FALSE},
        {"GetOverlappedResult",
         [&] { return GetOverlappedResult(nullptr, &overlapped, nullptr, FALSE); }, FALSE},
        {"DeleteFileW", [] { return DeleteFileW(L"/nonexistent/a"); }, FALSE},
        {"MoveFileW", [] { return MoveFileW(L"/nonexistent/a", L"/nonexistent/b"); }, FALSE},
        {"GetModuleFileNameW", [&] { return GetModuleFileNameW(nullptr, text, 4); }, 0},
        {"GetPrivateProfileSectionNamesW",
         [&] { return GetPrivateProfileSectionNamesW(text, 4, L"a.ini"); }, 0},
        {"GlobalAlloc", [&] { return number(GlobalAlloc(0, 4)); }, 0},
        {"GlobalFree", [&] { return number(GlobalFree(bytes)); }, number(bytes)},
        {"HidD_GetAttributes", [] { return HidD_GetAttributes(nullptr, nullptr); }, FALSE},
        {"HidD_GetPreparsedData", [] { return HidD_GetPreparsedData(nullptr, nullptr); }, FALSE},
        {"HidD_FreePreparsedData", [] { return HidD_FreePreparsedData(nullptr); }, FALSE},
        {"HidD_GetProductString", [&] { return HidD_GetProductString(nullptr, text, 4); }, FALSE},
        {"HidD_GetFeature", [&] { return HidD_GetFeature(nullptr, bytes, 4); }, FALSE},
        {"HidD_SetFeature", [&] { return HidD_SetFeature(nullptr, bytes, 4); }, FALSE},
        {"SetupDiGetClassDevsW",
         [&] { return number(SetupDiGetClassDevsW(nullptr, nullptr, nullptr, 0)); }, -1},
        {"SetupDiEnumDeviceInterfaces",
         [] { return SetupDiEnumDeviceInterfaces(nullptr, nullptr, nullptr, 0, nullptr); }, FALSE},
        {"SetupDiGetDeviceInterfaceDetailW",
         [] {
             return SetupDiGetDeviceInterfaceDetailW(nullptr, nullptr, nullptr, 0, nullptr,
                                                     nullptr);
         },
         FALSE},
        {"SetupDiDestroyDeviceInfoList", [] { return SetupDiDestroyDeviceInfoList(nullptr); },
         FALSE},
    };
    constexpr DWORD kError = 4711;
    for (const FailingCall& row : rows) {
        machine_.FailNext(row.function, Fault::Error(kError));
        SetLastError(0);
        EXPECT_EQ(row.call(), row.failureValue) << row.function;
        EXPECT_EQ(GetLastError(), kError) << row.function;
    }
    EXPECT_TRUE(machine_.Misuse().empty());
}

TEST_F(ScriptedFaults, LeaveCallsWithoutAResultUndone) {
    GUID guid{};
    machine_.FailNext("HidD_GetHidGuid", Fault::Error(31));
    machine_.FailNext("OutputDebugStringA", Fault::Error(31));
    HidD_GetHidGuid(&guid);
    OutputDebugStringA("lost");
    EXPECT_EQ(guid.Data1, 0U);
    EXPECT_TRUE(machine_.DebugOutput().empty());
}

}  // namespace
}  // namespace simulator_test
