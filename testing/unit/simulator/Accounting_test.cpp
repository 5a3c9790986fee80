#include "testing/unit/simulator/SimulatorTest.h"

#include <setupapi.h>

#include <limits>
#include <thread>

namespace simulator_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Accounting : public SimulatorTest {};

TEST_F(Accounting, ListsOpenHandlesInTheOrderOfTheirCreation) {
    const auto device = Plug();
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"m");
    const HANDLE file = Open(*device);
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HDEVINFO list = SetupDiGetClassDevsW(nullptr, nullptr, nullptr, 0);
    EXPECT_THAT(machine_.OpenHandles(), ElementsAre("mutex#1", "file#2", "event#3", "devices#4"));
    CloseHandle(event);
    SetupDiDestroyDeviceInfoList(list);
    Close(file);
    EXPECT_THAT(machine_.OpenHandles(), ElementsAre("mutex#1"));
    CloseHandle(mutex);
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(Accounting, LeavesHandlesFromBeforeAResetOpenButUnlisted) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    machine_.Reset();
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
    EXPECT_TRUE(SetEvent(event));
    EXPECT_TRUE(CloseHandle(event));
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(Accounting, SeesHandlesClosedThatAreNotOpen) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    CloseHandle(event);
    EXPECT_FALSE(CloseHandle(event));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(CloseHandle(nullptr));
    EXPECT_FALSE(CloseHandle(INVALID_HANDLE_VALUE));
    EXPECT_THAT(machine_.Misuse(), ElementsAre("CloseHandle(event#1): not an open handle",
                                               "CloseHandle(null): not an open handle",
                                               "CloseHandle(invalid): not an open handle"));
}

TEST_F(Accounting, SeesTheUseOfADevicesClosedHandle) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Close(file);
    EXPECT_EQ(Read(file, MakeOperation(Bytes(5))), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Write(file, MakeOperation({2, 0, 0, 0, 0, 0})), ERROR_INVALID_HANDLE);
    Result(file, MakeOperation({}));
    BYTE feature[5] = {4};
    EXPECT_FALSE(HidD_GetFeature(file, feature, sizeof feature));
    EXPECT_FALSE(HidD_SetFeature(file, feature, sizeof feature));
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    EXPECT_FALSE(HidD_GetPreparsedData(file, &preparsed));
    EXPECT_THAT(machine_.Misuse(),
                ElementsAre("ReadFile(file#1): closed already", "WriteFile(file#1): closed already",
                            "GetOverlappedResult(file#1): closed already",
                            "HidD_GetFeature(file#1): closed already",
                            "HidD_SetFeature(file#1): closed already",
                            "HidD_GetPreparsedData(file#1): closed already"));
}

TEST_F(Accounting, SeesTheUseOfAHandleThatWasClosedBeforeAReset) {
    const HANDLE file = Open(*Plug());
    Close(file);
    machine_.Reset();
    EXPECT_EQ(Write(file, MakeOperation({2, 0, 0, 0, 0, 0})), ERROR_INVALID_HANDLE);
    EXPECT_THAT(machine_.Misuse(), ElementsAre("WriteFile(file#1): closed already"));
}

TEST_F(Accounting, TakesHandlesThatNeverWereForHarmless) {
    auto* const unknown = reinterpret_cast<HANDLE>(std::uintptr_t{4});
    for (const HANDLE file : {HANDLE{nullptr}, INVALID_HANDLE_VALUE, unknown}) {
        EXPECT_EQ(Read(file, MakeOperation(Bytes(5))), ERROR_INVALID_HANDLE);
    }
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(Accounting, SeesTheWrongClosingFunction) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HDEVINFO list = SetupDiGetClassDevsW(nullptr, nullptr, nullptr, 0);
    EXPECT_FALSE(CloseHandle(list));
    EXPECT_FALSE(SetupDiDestroyDeviceInfoList(event));
    EXPECT_THAT(machine_.Misuse(),
                ElementsAre("CloseHandle(devices#2): not an open handle",
                            "SetupDiDestroyDeviceInfoList(event#1): not an open list"));
    EXPECT_TRUE(CloseHandle(event));
    EXPECT_TRUE(SetupDiDestroyDeviceInfoList(list));
}

TEST_F(Accounting, TakesTheInvalidListForHarmless) {
    EXPECT_FALSE(SetupDiDestroyDeviceInfoList(INVALID_HANDLE_VALUE));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(Accounting, CountsGlobalMemory) {
    auto* const zeroed = static_cast<BYTE*>(GlobalAlloc(GMEM_ZEROINIT, 8));
    auto* const raw = static_cast<BYTE*>(GlobalAlloc(GMEM_FIXED, 8));
    EXPECT_EQ(zeroed[7], 0);
    EXPECT_NE(raw[7], 0);
    EXPECT_EQ(machine_.GlobalMemoryInUse(), 2U);
    EXPECT_EQ(GlobalFree(zeroed), nullptr);
    EXPECT_EQ(GlobalFree(raw), nullptr);
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
    EXPECT_EQ(machine_.GlobalMemoryInUse(), 0U);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(Accounting, SeesMemoryFreedThatIsNotAllocated) {
    HGLOBAL block = GlobalAlloc(GMEM_FIXED, 0);
    ASSERT_NE(block, nullptr);
    GlobalFree(block);
    EXPECT_EQ(GlobalFree(this), this);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_THAT(machine_.Misuse(), ElementsAre("GlobalFree: not an allocated block"));
}

TEST_F(Accounting, HasNoMovableMemory) {
    EXPECT_EQ(GlobalAlloc(GMEM_MOVEABLE, 8), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_NOT_SUPPORTED);
}

class LastErrors : public SimulatorTest {};

TEST_F(LastErrors, BelongToTheThread) {
    SetLastError(5);
    std::thread other([] {
        EXPECT_EQ(GetLastError(), 0U);
        SetLastError(6);
    });
    other.join();
    EXPECT_EQ(GetLastError(), 5U);
}

}  // namespace
}  // namespace simulator_test
