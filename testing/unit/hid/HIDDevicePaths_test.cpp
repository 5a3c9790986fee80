// The device paths of the machine's HID interfaces, and the platform calls that list them.
#include "hid/HIDDevicePaths.h"
#include "testing/unit/hid/HidTest.h"

namespace hid_test {
namespace {

using vela::GetHidDevicePathList;

const std::string kGuid = "{4d1e55b2-f16f-11cf-88cb-001111000030}";
const std::string kOpenList = "SetupDiGetClassDevsW(" + kGuid + ", null, null, 0x12)";
const std::string kCloseList = "SetupDiDestroyDeviceInfoList(devices#1)";

std::string Enumerate(int index) {
    return "SetupDiEnumDeviceInterfaces(devices#1, null, " + kGuid + ", " + std::to_string(index) +
           ")";
}

class HIDDevicePathsTest : public HidTest {
 protected:
    std::shared_ptr<Device> PlugAt(const std::wstring& path) {
        DeviceDescription description = Describe({});
        description.path = path;
        return machine_.Plug(description);
    }
    // Three devices at the paths "first", "second" and "third".
    void PlugThree() {
        for (const wchar_t* const path : {L"first", L"second", L"third"}) PlugAt(path);
    }
};

TEST_F(HIDDevicePathsTest, AMachineWithoutDevicesGivesNoPath) {
    EXPECT_THAT(GetHidDevicePathList(), IsEmpty());
    EXPECT_THAT(machine_.CallTexts(),
                ElementsAre("HidD_GetHidGuid()", kOpenList, Enumerate(0), kCloseList));
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(HIDDevicePathsTest, PathsComeInTheOrderOfTheEnumeration) {
    PlugAt(L"z");
    PlugAt(L"a");
    PlugAt(L"m");
    EXPECT_THAT(GetHidDevicePathList(), ElementsAre(L"z", L"a", L"m"));
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(HIDDevicePathsTest, EachPathIsReadIntoABlockOfItsSize) {
    PlugAt(L"\\\\?\\hid#a");
    PlugAt(L"\\\\?\\hid#longer");
    const std::string first = std::to_string(4 + 10 * sizeof(wchar_t));
    const std::string second = std::to_string(4 + 15 * sizeof(wchar_t));
    GetHidDevicePathList();
    EXPECT_THAT(machine_.CallTexts(),
                ElementsAre("HidD_GetHidGuid()", kOpenList,  //
                            Enumerate(0), "SetupDiGetDeviceInterfaceDetailW(devices#1, 0)",
                            "GlobalAlloc(0x40, " + first + ")",
                            "SetupDiGetDeviceInterfaceDetailW(devices#1, " + first + ")",
                            "GlobalFree()",  //
                            Enumerate(1), "SetupDiGetDeviceInterfaceDetailW(devices#1, 0)",
                            "GlobalAlloc(0x40, " + second + ")",
                            "SetupDiGetDeviceInterfaceDetailW(devices#1, " + second + ")",
                            "GlobalFree()",  //
                            Enumerate(2), kCloseList));
}

TEST_F(HIDDevicePathsTest, PathsAreKeptLetterByLetter) {
    const std::wstring longPath = L"\\\\?\\HID#" + std::wstring(2000, L'x');
    const std::wstring mixed = L"\\\\?\\HID#Vid_0488&pid_1234#7&1f2E#{G}";
    const std::wstring foreign = L"\\\\?\\hid#\u00e9\u4f60";
    for (const std::wstring& path : {longPath, mixed, foreign}) PlugAt(path);
    EXPECT_THAT(GetHidDevicePathList(), ElementsAre(longPath, mixed, foreign));
}

TEST_F(HIDDevicePathsTest, OnlyPresentDevicesAreListed) {
    const auto first = PlugAt(L"first");
    PlugAt(L"second");
    first->Unplug();
    EXPECT_THAT(GetHidDevicePathList(), ElementsAre(L"second"));
    first->PlugIn();
    EXPECT_THAT(GetHidDevicePathList(), ElementsAre(L"second", L"first"));
}

// The platform's errors go up to 32 bits, and are logged as signed numbers.
class DeviceListFailure : public HIDDevicePathsTest,
                          public testing::WithParamInterface<std::uint32_t> {
 protected:
    std::string Failed(const char* call) const {
        return "ERROR GetHidDevicePathList: " + std::string(call) + " faild, last error (" +
               std::to_string(static_cast<std::int32_t>(GetParam())) + ").";
    }
};

TEST_P(DeviceListFailure, OfOpeningTheListIsLoggedAndGivesNoPath) {
    PlugThree();
    machine_.FailNext("SetupDiGetClassDevsW", Fault::Error(GetParam()));
    EXPECT_THAT(GetHidDevicePathList(), IsEmpty());
    EXPECT_THAT(machine_.CallTexts(), ElementsAre("HidD_GetHidGuid()", kOpenList,
                                                  "SetupDiDestroyDeviceInfoList(invalid)"));
    EXPECT_THAT(log_.Texts(), ElementsAre(Failed("SetupDiGetClassDevs")));
}

TEST_P(DeviceListFailure, OfTheEnumerationIsLoggedAndEndsIt) {
    PlugThree();
    machine_.FailNext("SetupDiEnumDeviceInterfaces", Fault::Error(GetParam()), 2);
    EXPECT_THAT(GetHidDevicePathList(), ElementsAre(L"first", L"second"));
    EXPECT_THAT(machine_.CallTexts({"SetupDiEnumDeviceInterfaces", "SetupDiDestroyDeviceInfoList"}),
                ElementsAre(Enumerate(0), Enumerate(1), Enumerate(2), kCloseList));
    EXPECT_THAT(log_.Texts(), ElementsAre(Failed("SetupDiEnumDeviceInterfaces")));
}

INSTANTIATE_TEST_SUITE_P(Errors, DeviceListFailure,
                         testing::Values(0U, 5U, 13U, 258U, 260U, 0xE0000203U));

TEST_F(HIDDevicePathsTest, TheEndOfTheEnumerationIsSilentWhereverItComes) {
    PlugThree();
    machine_.FailNext("SetupDiEnumDeviceInterfaces", Fault::Error(ERROR_NO_MORE_ITEMS), 1);
    EXPECT_THAT(GetHidDevicePathList(), ElementsAre(L"first"));
    EXPECT_EQ(machine_.CountCalls("SetupDiDestroyDeviceInfoList"), 1U);
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

struct SkippedInterface {
    const char* name;
    const char* function;
    Fault fault;
    std::size_t skip;         // calls of the function before the failing one
    std::size_t allocations;  // blocks requested in all
    std::size_t frees;
};

class DeviceInterfaceFailure : public HIDDevicePathsTest,
                               public testing::WithParamInterface<SkippedInterface> {};

TEST_P(DeviceInterfaceFailure, SkipsThatInterfaceSilently) {
    PlugThree();
    machine_.FailNext(GetParam().function, GetParam().fault, GetParam().skip);
    EXPECT_THAT(GetHidDevicePathList(), ElementsAre(L"first", L"third"));
    EXPECT_EQ(machine_.CountCalls("GlobalAlloc"), GetParam().allocations);
    EXPECT_EQ(machine_.CountCalls("GlobalFree"), GetParam().frees);
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

// Every interface takes two detail calls: one for the size, one for the path.
constexpr char kDetail[] = "SetupDiGetDeviceInterfaceDetailW";

INSTANTIATE_TEST_SUITE_P(
    Steps, DeviceInterfaceFailure,
    testing::Values(SkippedInterface{"NoSize", kDetail, Fault::Error(13), 2, 2, 2},
                    SkippedInterface{"NoSizeOfASuccess", kDetail, Fault::Result(TRUE), 2, 2, 2},
                    SkippedInterface{"NoMemory", "GlobalAlloc", Fault::Error(8), 1, 3, 2},
                    SkippedInterface{"NoPath", kDetail, Fault::Error(13), 3, 3, 3},
                    // The result is a BOOL: neither 2 nor -1 is TRUE.
                    SkippedInterface{"AnAnswerOfTwo", kDetail, Fault::Result(2), 3, 3, 3},
                    SkippedInterface{"AnAnswerBelowZero", kDetail, Fault::Result(-1), 3, 3, 3}),
    [](const auto& test) { return test.param.name; });

TEST_F(HIDDevicePathsTest, ThreadsMayListAtTheSameTime) {
    PlugThree();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int round = 0; round < 50; ++round) {
                EXPECT_THAT(GetHidDevicePathList(), ElementsAre(L"first", L"second", L"third"));
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace hid_test
