// Reading and setting the intensity of a haptic touchpad.
#include "testing/acceptance/HapticTest.h"

namespace acceptance {
namespace {

using testing::ElementsAre;

std::string GotLine(std::uint32_t level) {
    return "{INFO @ GetIntensityLevel} CHapticTouchpadHID GetIntensityLevel(" +
           std::to_string(level) + ") succeeded.";
}

std::string SetLine(std::uint32_t level) {
    return "{INFO @ SetIntensityLevel} CHapticTouchpadHID SetIntensityLevel(" +
           std::to_string(level) + ") succeeded.";
}

class HapticIntensityTest : public HapticTest {
 protected:
    void Open(const HapticFields& fields = {9, 42, 17, 200}) {
        Plug(fields);
        ASSERT_EQ(agent_.InitHapticTP(), 1);
    }
    // Returns the lines without the first one, about opening.
    std::vector<std::string> LinesSinceTheOpening() {
        std::vector<std::string> lines = SessionLines();
        lines.erase(lines.begin());
        return lines;
    }
};

class HapticLevelTest : public HapticIntensityTest, public testing::WithParamInterface<int> {
 protected:
    static std::uint8_t Level() { return static_cast<std::uint8_t>(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(, HapticLevelTest, testing::Values(0, 1, 63, 64, 100),
                         testing::PrintToStringParamName());

TEST_P(HapticLevelTest, IsReadFromAmongTheReportsOtherFields) {
    for (const bool othersFull : {false, true}) {
        SCOPED_TRACE(othersFull);
        const auto other = static_cast<std::uint8_t>(othersFull ? 0xFF : 0);
        ASSERT_NO_FATAL_FAILURE(Open({static_cast<std::uint8_t>(other & 15), Level(),
                                      static_cast<std::uint8_t>(other & 31), other}));
        EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), Level());
        EXPECT_EQ(agent_.UnInitHapticTP(), 1);
        Unplug();
    }
}

TEST_P(HapticLevelTest, IsSetWithTheOtherFieldsAsTheyWere) {
    for (const bool othersFull : {false, true}) {
        SCOPED_TRACE(othersFull);
        const auto other = static_cast<std::uint8_t>(othersFull ? 0xFF : 0);
        HapticFields fields{static_cast<std::uint8_t>(other & 15), 42,
                            static_cast<std::uint8_t>(other & 31), other};
        ASSERT_NO_FATAL_FAILURE(Open(fields));
        EXPECT_EQ(agent_.SetHapticTPIntensityLevel(Level()), 1);
        fields.intensity = Level();
        EXPECT_EQ(StoredHaptics(), HapticsReport(fields));
        EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), Level());
        EXPECT_EQ(agent_.UnInitHapticTP(), 1);
        Unplug();
    }
}

TEST_F(HapticIntensityTest, EachCallIsOneExchangeAndOneLine) {
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 42U);
    EXPECT_EQ(Device().State().featureGetCount, 1U);
    EXPECT_EQ(Device().State().featureSetCount, 0U);
    EXPECT_EQ(agent_.SetHapticTPIntensityLevel(60), 1);
    EXPECT_EQ(Device().State().featureGetCount, 2U);
    EXPECT_EQ(Device().State().featureSetCount, 1U);
    EXPECT_THAT(LinesSinceTheOpening(), ElementsAre(GotLine(42), SetLine(60)));
}

TEST_F(HapticIntensityTest, TheOtherFeatureReportsAreLeftAlone) {
    ASSERT_NO_FATAL_FAILURE(Open());
    const virtual_touchpad::Report reporting{virtual_touchpad::kReportingReportId, 3};
    const virtual_touchpad::Report capabilities{virtual_touchpad::kCapabilitiesReportId, 0x25};
    Device().SetFeature(reporting);
    Device().SetFeature(capabilities);
    EXPECT_EQ(agent_.SetHapticTPIntensityLevel(60), 1);
    EXPECT_EQ(Device().Feature(reporting[0]), reporting);
    EXPECT_EQ(Device().Feature(capabilities[0]), capabilities);
    EXPECT_FALSE(Device().Feature(virtual_touchpad::kCertificationReportId).has_value());
}

TEST_F(HapticIntensityTest, ALevelTheDeviceChangedIsSeen) {
    ASSERT_NO_FATAL_FAILURE(Open());
    Device().SetFeature(virtual_touchpad::HapticsReport({1, 77, 2, 3}));
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 77U);
}

// 101 fits the field's seven bits; 300 is truncated to 44. The device's range is not checked.
TEST_F(HapticIntensityTest, ALevelBeyondTheDevicesRangeIsPassedOn) {
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.SetHapticTPIntensityLevel(101), 1);
    EXPECT_EQ(StoredHaptics(), virtual_touchpad::HapticsReport({9, 101, 17, 200}));
    EXPECT_EQ(agent_.SetHapticTPIntensityLevel(300), 1);
    EXPECT_EQ(StoredHaptics(), virtual_touchpad::HapticsReport({9, 44, 17, 200}));
    EXPECT_THAT(LinesSinceTheOpening(), ElementsAre(SetLine(101), SetLine(300)));
}

// 1117 is ERROR_IO_DEVICE, the system's translation of STATUS_IO_DEVICE_ERROR.
TEST_F(HapticIntensityTest, ADevicesRefusalIsLoggedAndTheSessionStaysOpen) {
    constexpr auto kIoError = static_cast<std::int32_t>(0xC0000185);
    ASSERT_NO_FATAL_FAILURE(Open());
    Device().FailNextFeature(kIoError);
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 0U);
    Device().FailNextFeature(kIoError);
    EXPECT_EQ(agent_.SetHapticTPIntensityLevel(60), 0);
    EXPECT_EQ(agent_.SetHapticTPIntensityLevel(61), 1);
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 61U);
    EXPECT_THAT(
        LinesSinceTheOpening(),
        ElementsAre("{ERROR @ GetIntensityLevel} HidD_GetFeature failed, GetLastError(1117).",
                    "{ERROR @ SetIntensityLevel} HidD_GetFeature failed, GetLastError(1117).",
                    SetLine(61), GotLine(61)));
}

TEST_F(HapticIntensityTest, AnUnpluggedOneFailsUntilItIsOpenedAnew) {
    ASSERT_NO_FATAL_FAILURE(Open());
    Unplug();
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 0U);
    EXPECT_EQ(agent_.SetHapticTPIntensityLevel(60), 0);
    Plug({0, 55, 0, 0});
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 0U);
    EXPECT_EQ(agent_.UnInitHapticTP(), 1);
    ASSERT_EQ(agent_.InitHapticTP(), 1);
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 55U);
}

}  // namespace
}  // namespace acceptance
