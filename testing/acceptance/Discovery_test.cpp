// The choice of the touchpad among several HID devices. Wine always has two devices of its own.
#include "testing/acceptance/FurtherDevice.h"
#include "testing/acceptance/HidPaths.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"
#include "testing/virtual-touchpad/control/WaitingCreateFile.h"
#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace acceptance {
namespace {

using testing::ElementsAre;
using virtual_touchpad::CollectionKind;
using virtual_touchpad::DeviceSettings;
using virtual_touchpad::MainItem;
using virtual_touchpad::ReportDescriptorBuilder;
using virtual_touchpad::SettingsOf;

constexpr char kNoSession[] =
    "{INFO @ GetDeviceConnectState} GetDeviceConnectState failed because doesn't initialize";
constexpr char kEmptyRecord[] =
    "{INFO @ ~CHIDInformation} CHIDInformation clear device UsagePage (0),  Usage (0) information";
constexpr char kRecord[] =
    "{INFO @ ~CHIDInformation} CHIDInformation clear device UsagePage (ff80),  Usage (80) "
    "information";
constexpr char kLastLine[] = "{INFO @ UnInitialize} Logger::UnInitialize";

// --- devices that are not the touchpad -----------------------------------------------------------

TouchpadLayout TouchpadOf(std::uint16_t vendorId, std::uint16_t usagePage, std::uint16_t usage) {
    TouchpadLayout layout;
    layout.vendorId = vendorId;
    layout.usagePage = usagePage;
    layout.usage = usage;
    return layout;
}

// Returns the touchpad's vendor id and collection with other content.
DeviceSettings TouchpadWith(
    const std::function<void(ReportDescriptorBuilder& builder)>& addContent) {
    DeviceSettings settings = SettingsOf(TouchpadLayout{});
    ReportDescriptorBuilder builder;
    builder.UsagePage(0xFF80).Usage(0x80).Collection(CollectionKind::Application).ReportId(1);
    addContent(builder);
    settings.reportDescriptor = builder.EndCollection().Bytes();
    return settings;
}

DeviceSettings WithoutValuesOfItsPage() {
    return TouchpadWith([](ReportDescriptorBuilder& builder) {
        builder.Buttons(MainItem::Input, 0x40, 0x47)
            .UsagePage(0xFF81)
            .Value(MainItem::Output, 0x20, 8, 0xFF);
    });
}

DeviceSettings WithoutButtonsOfItsPage() {
    return TouchpadWith([](ReportDescriptorBuilder& builder) {
        builder.Value(MainItem::Output, 0x20, 8, 0xFF)
            .UsagePage(0xFF81)
            .Buttons(MainItem::Input, 0x40, 0x47);
    });
}

struct Stranger {
    const char* name;
    DeviceSettings settings;
    std::vector<std::string> log;  // the lines that each scan logs about it
};

void PrintTo(const Stranger& stranger, std::ostream* stream) { *stream << stranger.name; }

class StrangerTest : public TouchpadAcceptanceTest, public testing::WithParamInterface<Stranger> {};

INSTANTIATE_TEST_SUITE_P(
    , StrangerTest,
    testing::Values(
        Stranger{"OtherUsage", SettingsOf(TouchpadOf(0x0488, 0xFF80, 0x0081)), {}},
        Stranger{"OtherPage", SettingsOf(TouchpadOf(0x0488, 0xFF81, 0x0080)), {}},
        Stranger{"OtherVendor", SettingsOf(TouchpadOf(0x0489, 0xFF80, 0x0080)), {}},
        Stranger{"PageAndUsageInEachOthersPlace", SettingsOf(TouchpadOf(0x0488, 0x80, 0xFF80)), {}},
        Stranger{"HapticTouchpad", SettingsOf(virtual_touchpad::HapticLayout{}), {}},
        Stranger{"WithoutValuesOfItsPage",
                 WithoutValuesOfItsPage(),
                 {"{WARNING @ FillValueCapUsagePages} FillValueCapUsagePages failed, doesn't have "
                  "matched report type"}},
        Stranger{"WithoutButtonsOfItsPage",
                 WithoutButtonsOfItsPage(),
                 {"{WARNING @ FillButtonCapUsagePages} FillButtonCapUsagePages failed, doesn't "
                  "have matched report type"}}),
    [](const auto& test) { return test.param.name; });

// The other devices' names are enumerated before and after the touchpad's.
TEST_P(StrangerTest, IsNotFoundAloneAndHidesNoTouchpad) {
    FurtherDevice before(L"before", GetParam().settings);
    EXPECT_EQ(agent_.Init(), VELA_INIT_NOT_FOUND);
    FurtherDevice unrelated(L"unrelated", GetParam().settings);
    Plug();
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    agent_.UnInitLogger();
    std::vector<std::string> expected = GetParam().log;
    expected.insert(expected.end(), {kEmptyRecord, kNoSession});
    expected.insert(expected.end(), GetParam().log.begin(), GetParam().log.end());
    expected.insert(expected.end(),
                    {"{INFO @ ScanHIDInformation} GetHIDInformation PID (0x1234) FW version(0x63).",
                     kRecord, kLastLine});
    EXPECT_EQ(log_.Lines(), expected);

    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(WaitForLights(AllFourLit));
    EXPECT_TRUE(before.IsUntouched());
    EXPECT_TRUE(unrelated.IsUntouched());
    Unplug();
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
}

// --- several touchpads ---------------------------------------------------------------------------

class DiscoveryTest : public TouchpadAcceptanceTest {};

TEST_F(DiscoveryTest, WithoutAnyTouchpadOnlyTheEmptyRecordIsLogged) {
    EXPECT_EQ(agent_.Init(), VELA_INIT_NOT_FOUND);
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    agent_.UnInitLogger();
    EXPECT_THAT(log_.Lines(), ElementsAre(kEmptyRecord, kNoSession, kEmptyRecord, kLastLine));
}

TEST_F(DiscoveryTest, TheProductIdIsNoConditionAndIsLoggedWithTheFirmwaresVersion) {
    TouchpadLayout layout;
    layout.productId = 0xABCD;
    layout.versionNumber = 0x0102;
    Plug(layout);
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    agent_.UnInitLogger();
    EXPECT_THAT(
        log_.Lines(),
        ElementsAre(kNoSession,
                    "{INFO @ ScanHIDInformation} GetHIDInformation PID (0xabcd) FW version(0x102).",
                    kRecord, kLastLine));
}

// The system enumerates the touchpad that was plugged in last first.
TEST_F(DiscoveryTest, OfTwoTheFirstInTheSystemsOrderIsOpenedAndTheOtherLeftAlone) {
    FurtherDevice second(L"zweites");
    Plug();
    const std::vector<std::wstring> paths = HidPaths();
    ASSERT_EQ(paths.back(), second.Path());
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(WaitForLights(AllFourLit));
    EXPECT_EQ(agent_.SetClickMode(1, 300), 1);
    EXPECT_EQ(Touchpad().Device().Opens(), 1U);
    EXPECT_TRUE(second.IsUntouched());

    // An open session keeps its touchpad when an earlier one is plugged in.
    FurtherDevice earlier(L"another");
    EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x20) == 3; }));
    EXPECT_TRUE(earlier.IsUntouched());
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_EQ(earlier.Device().Opens(), 1U);
    EXPECT_EQ(Touchpad().Device().Opens(), 0U);
    EXPECT_EQ(agent_.UnInit(), 1);
}

TEST_F(DiscoveryTest, WhenTheFirstIsPulledOutTheSecondIsNextToBeOpened) {
    FurtherDevice second(L"zweites");
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    Unplug();
    EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);  // finds the second, keeps the first's session
    EXPECT_TRUE(second.IsUntouched());
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_EQ(second.Device().Opens(), 1U);
    EXPECT_EQ(agent_.UnInit(), 1);
}

// The driver refuses every open, which shows at CreateFile on Windows and at the first use in Wine.
class RefusingDeviceTest : public TouchpadAcceptanceTest,
                           public testing::WithParamInterface<bool> {};

INSTANTIATE_TEST_SUITE_P(, RefusingDeviceTest, testing::Bool(), [](const auto& test) {
    return test.param ? "WhenItIsOpened" : "WhenItIsAsked";
});

TEST_P(RefusingDeviceTest, IsSkippedWithoutALine) {
    if (GetParam()) virtual_touchpad::MakeCreateFileWait(GetModuleHandleW(L"VelaAgent.dll"));
    FurtherDevice refusing(L"refusing");
    refusing.Device().LimitOpens(0);
    EXPECT_EQ(agent_.Init(), VELA_INIT_NOT_FOUND);
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(Touchpad().Device().Opens(), 1U);
    EXPECT_TRUE(refusing.IsUntouched());
    agent_.UnInitLogger();
    std::vector<std::string> lines = log_.Lines();
    lines.resize(2);
    EXPECT_THAT(lines, ElementsAre(kEmptyRecord,
                                   "{INFO @ ScanHIDInformation} GetHIDInformation PID (0x1234) FW "
                                   "version(0x63)."));
}

TEST_F(DiscoveryTest, ManyDevicesArePassedOver) {
    std::vector<std::unique_ptr<FurtherDevice>> strangers;
    for (int i = 0; i < 8; ++i) {
        strangers.push_back(std::make_unique<FurtherDevice>(L"many-" + std::to_wstring(i),
                                                            TouchpadOf(0x0488, 0xFF80, 0x0081)));
    }
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    EXPECT_EQ(agent_.UnInit(), 1);
}

}  // namespace
}  // namespace acceptance
