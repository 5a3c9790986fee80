#include "testing/unit/simulator/SimulatorTest.h"

#include <setupapi.h>

#include <cstdlib>
#include <thread>

namespace simulator_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CallRecord : public SimulatorTest {
 protected:
    std::shared_ptr<Device> PlugAt(const std::wstring& path) {
        DeviceDescription description;
        description.reportDescriptor = DescriptorWithIds();
        description.path = path;
        return machine_.Plug(description);
    }
};

TEST_F(CallRecord, NamesFilesAndEventsByKindAndNumber) {
    PlugAt(L"\\\\?\\hid#pad");
    const HANDLE file = CreateFileW(L"\\\\?\\HID#pad", kReadWrite, 0, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_OVERLAPPED, nullptr);
    OVERLAPPED overlapped{};
    overlapped.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    BYTE report[6] = {2, 0, 3};
    WriteFile(file, report, sizeof report, nullptr, &overlapped);
    WaitForSingleObject(overlapped.hEvent, 30000);
    WaitForSingleObject(overlapped.hEvent, INFINITE);
    GetOverlappedResult(file, &overlapped, nullptr, TRUE);
    ResetEvent(overlapped.hEvent);
    SetEvent(overlapped.hEvent);
    ReadFile(file, report, 2, nullptr, &overlapped);
    overlapped.hEvent = nullptr;
    ReadFile(file, report, 2, nullptr, &overlapped);
    ReadFile(INVALID_HANDLE_VALUE, report, 2, nullptr, nullptr);
    CloseHandle(file);
    EXPECT_THAT(
        machine_.CallTexts(),
        ElementsAre("CreateFileW(\"\\\\?\\HID#pad\", 0xc0000000, 0x0, 3, 0x40000000)",
                    "CreateEventW(1, 0, null)",  //
                    "WriteFile(file#1, 02 00 03 00 00 00, event#2)",
                    "WaitForSingleObject(event#2, 30000)", "WaitForSingleObject(event#2, infinite)",
                    "GetOverlappedResult(file#1, event#2, 1)",  //
                    "ResetEvent(event#2)",                      //
                    "SetEvent(event#2)",                        //
                    "ReadFile(file#1, 2, event#2)",             //
                    "ReadFile(file#1, 2, null)",                //
                    "ReadFile(invalid, 2, null)",               //
                    "CloseHandle(file#1)"));
}

TEST_F(CallRecord, HasTheHidCalls) {
    PlugAt(L"p");
    const HANDLE file = CreateFileW(L"p", 0, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr);
    GUID guid{};
    HIDD_ATTRIBUTES attributes{sizeof(HIDD_ATTRIBUTES), 0, 0, 0};
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    wchar_t text[4] = {};
    BYTE feature[5] = {4, 0xAB};
    HidD_GetHidGuid(&guid);
    HidD_GetAttributes(file, &attributes);
    HidD_GetPreparsedData(file, &preparsed);
    HidD_FreePreparsedData(preparsed);
    HidD_GetProductString(file, text, sizeof text);
    HidD_SetFeature(file, feature, 3);
    HidD_GetFeature(file, feature, 5);
    CloseHandle(file);
    EXPECT_THAT(machine_.CallTexts(),
                ElementsAre("CreateFileW(\"p\", 0x0, 0x3, 3, 0x0)",  //
                            "HidD_GetHidGuid()",                     //
                            "HidD_GetAttributes(file#1)",            //
                            "HidD_GetPreparsedData(file#1)",         //
                            "HidD_FreePreparsedData()",              //
                            "HidD_GetProductString(file#1, 16)",     //
                            "HidD_SetFeature(file#1, 04 ab 00)",     //
                            "HidD_GetFeature(file#1, 5)",            //
                            "CloseHandle(file#1)"));
}

TEST_F(CallRecord, HasTheEnumerationCalls) {
    Plug();
    GUID guid{};
    HidD_GetHidGuid(&guid);
    const HDEVINFO list =
        SetupDiGetClassDevsW(&guid, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
    SP_DEVICE_INTERFACE_DATA data{sizeof(SP_DEVICE_INTERFACE_DATA), {}, 0, 0};
    SetupDiEnumDeviceInterfaces(list, nullptr, &guid, 0, &data);
    SetupDiGetDeviceInterfaceDetailW(list, &data, nullptr, 0, nullptr, nullptr);
    SetupDiDestroyDeviceInfoList(list);
    SetupDiDestroyDeviceInfoList(INVALID_HANDLE_VALUE);
    EXPECT_THAT(machine_.CallTexts(),
                ElementsAre("HidD_GetHidGuid()",
                            "SetupDiGetClassDevsW({4d1e55b2-f16f-11cf-88cb-001111000030}, null, "
                            "null, 0x12)",
                            "SetupDiEnumDeviceInterfaces(devices#1, null, "
                            "{4d1e55b2-f16f-11cf-88cb-001111000030}, 0)",
                            "SetupDiGetDeviceInterfaceDetailW(devices#1, 0)",
                            "SetupDiDestroyDeviceInfoList(devices#1)",
                            "SetupDiDestroyDeviceInfoList(invalid)"));
}

TEST_F(CallRecord, HasTheOtherCalls) {
    wchar_t text[4] = {};
    CreateMutexW(nullptr, TRUE, L"Global\\\u00E9\u4E2D\U0001F600");
    OpenMutexW(MUTEX_ALL_ACCESS, FALSE, L"m");
    GetModuleFileNameW(nullptr, text, 4);
    GetModuleFileNameW(text, text, 4);
    GetPrivateProfileSectionNamesW(text, 4, L"a.ini");
    GlobalFree(GlobalAlloc(GMEM_ZEROINIT, 76));
    DeleteFileW(L"/nonexistent/a");
    MoveFileW(L"/nonexistent/a", L"/nonexistent/b");
    OutputDebugStringA("hello");
    EXPECT_THAT(machine_.CallTexts(),
                ElementsAre("CreateMutexW(1, \"Global\\\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80\")",
                            "OpenMutexW(0x1f0001, 0, \"m\")",                     //
                            "GetModuleFileNameW(null, 4)",                        //
                            "GetModuleFileNameW(module, 4)",                      //
                            "GetPrivateProfileSectionNamesW(4, \"a.ini\")",       //
                            "GlobalAlloc(0x40, 76)",                              //
                            "GlobalFree()",                                       //
                            "DeleteFileW(\"/nonexistent/a\")",                    //
                            "MoveFileW(\"/nonexistent/a\", \"/nonexistent/b\")",  //
                            "OutputDebugStringA(\"hello\")"));
}

TEST_F(CallRecord, LeavesOutWhatIsNoPlatformCallToASession) {
    SetLastError(1);
    GetLastError();
    _time64(nullptr);
    EXPECT_THAT(machine_.Calls(), IsEmpty());
}

TEST_F(CallRecord, KeepsOrderThreadAndCounts) {
    std::thread::id other;
    SetEvent(nullptr);
    std::thread thread([&] {
        other = std::this_thread::get_id();
        ResetEvent(nullptr);
    });
    thread.join();
    const auto calls = machine_.Calls();
    ASSERT_THAT(calls, SizeIs(2));
    EXPECT_EQ(calls[0].index, 0U);
    EXPECT_EQ(calls[0].thread, std::this_thread::get_id());
    EXPECT_EQ(calls[1].index, 1U);
    EXPECT_EQ(calls[1].thread, other);
    EXPECT_THAT(machine_.CallTexts({"ResetEvent"}), ElementsAre("ResetEvent(null)"));
    EXPECT_EQ(machine_.CountCalls("SetEvent"), 1U);
    EXPECT_EQ(machine_.CountCalls("CloseHandle"), 0U);
}

TEST_F(CallRecord, CanBeForgottenAndSwitchedOff) {
    SetEvent(nullptr);
    machine_.ForgetCalls();
    EXPECT_EQ(machine_.CountCalls("SetEvent"), 0U);
    machine_.RecordCalls(false);
    SetEvent(nullptr);
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
    machine_.RecordCalls(true);
    SetEvent(nullptr);
    ASSERT_THAT(machine_.Calls(), SizeIs(1));
    EXPECT_EQ(machine_.Calls()[0].index, 2U);
}

TEST_F(CallRecord, StartsAnewWithAReset) {
    CreateEventW(nullptr, TRUE, FALSE, nullptr);
    machine_.Reset();
    EXPECT_THAT(machine_.Calls(), IsEmpty());
    SetEvent(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    EXPECT_THAT(machine_.CallTexts({"SetEvent"}), ElementsAre("SetEvent(event#1)"));
}

TEST_F(CallRecord, NamesClosedAndUnknownHandles) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    CloseHandle(event);
    SetEvent(event);
    SetEvent(reinterpret_cast<HANDLE>(std::uintptr_t{0x1234}));
    EXPECT_THAT(machine_.CallTexts({"SetEvent"}),
                ElementsAre("SetEvent(event#1)", "SetEvent(0x1234)"));
}

}  // namespace
}  // namespace simulator_test
