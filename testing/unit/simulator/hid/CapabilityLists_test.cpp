#include <optional>
#include <utility>

#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

TEST(Ranges, AreOneCapabilityWithTheFlag) {
    const ParsedDevice device(Application().Buttons(Main::Input, 0x40, 0x47));
    const auto caps = device.ButtonCaps(HidP_Input);
    ASSERT_EQ(caps.size(), 1u);
    EXPECT_TRUE(caps[0].IsRange);
    EXPECT_EQ(caps[0].Range.UsageMin, 0x40);
    EXPECT_EQ(caps[0].Range.UsageMax, 0x47);
}

TEST(Ranges, OfOneUsageKeepTheFlag) {
    const auto caps =
        ParsedDevice(Application().Buttons(Main::Output, 0x30, 0x30).Padding(Main::Output, 7))
            .ButtonCaps(HidP_Output);
    ASSERT_EQ(caps.size(), 1u);
    EXPECT_TRUE(caps[0].IsRange);
    EXPECT_EQ(caps[0].Range.UsageMin, 0x30);
    EXPECT_EQ(caps[0].Range.UsageMax, 0x30);
}

TEST(Ranges, ASingleUsageIsNone) {
    const auto caps =
        ParsedDevice(Application().Value(Main::Output, 0x20, 8, 0xFF)).ValueCaps(HidP_Output);
    ASSERT_EQ(caps.size(), 1u);
    EXPECT_FALSE(caps[0].IsRange);
    EXPECT_EQ(caps[0].NotRange.Usage, 0x20);
}

TEST(Ranges, MayGiveTheMaximumFirst) {
    const auto caps = ParsedDevice(Application()
                                       .ReportSize(1)
                                       .ReportCount(3)
                                       .UsageMaximum(0x43)
                                       .UsageMinimum(0x41)
                                       .Main(Main::Input, kDataVariable)
                                       .Padding(Main::Input, 5))
                          .ButtonCaps(HidP_Input);
    ASSERT_EQ(caps.size(), 1u);
    EXPECT_EQ(caps[0].Range.UsageMin, 0x41);
    EXPECT_EQ(caps[0].Range.UsageMax, 0x43);
}

struct Kind {
    const char* name;
    std::uint32_t bits;
    std::uint8_t flags;
    std::optional<std::uint16_t> usage;
    std::size_t buttons, values;
};
constexpr auto kNoUsage = std::nullopt;
const Kind kKinds[] = {
    {"one-bit variable", 1, kDataVariable, 0x20, 1, 0},
    {"two-bit variable", 2, kDataVariable, 0x20, 0, 1},
    {"one-bit array", 1, kDataArray, 0x20, 1, 0},
    {"byte array", 8, kDataArray, 0x20, 1, 0},
    {"variable of usage 0", 8, kDataVariable, 0, 0, 1},
    {"constant variable", 8, kConstant | kDataVariable, 0x20, 0, 1},
    {"constant bit", 1, kConstant | kDataVariable, 0x20, 1, 0},
    {"constant array", 8, kConstant, 0x20, 0, 0},
    {"constant bit of usage 0", 1, kConstant | kDataVariable, 0, 0, 0},
    {"constant variable of usage 0", 8, kConstant | kDataVariable, 0, 0, 0},
    {"constant variable without a usage", 8, kConstant | kDataVariable, kNoUsage, 0, 0},
    {"constant array without a usage", 8, kConstant, kNoUsage, 0, 0},
};

TEST(ButtonsAndValues, AreToldApartByBitsAndFlagsAndConstantsByUsage) {
    for (const Kind& kind : kKinds) {
        ReportDescriptorBuilder builder = Application();
        builder.ReportSize(kind.bits).ReportCount(1);
        if (kind.usage) builder.Usage(*kind.usage);
        builder.Main(Main::Output, kind.flags);
        const ParsedDevice device(builder.Padding(Main::Output, 8 - kind.bits));
        EXPECT_EQ(device.ButtonCaps(HidP_Output).size(), kind.buttons) << kind.name;
        EXPECT_EQ(device.ValueCaps(HidP_Output).size(), kind.values) << kind.name;
        EXPECT_EQ(device.Caps().NumberOutputButtonCaps, kind.buttons) << kind.name;
        EXPECT_EQ(device.Caps().NumberOutputValueCaps, kind.values) << kind.name;
        EXPECT_EQ(device.Caps().NumberOutputDataIndices, kind.buttons + kind.values) << kind.name;
        EXPECT_EQ(device.MaxUsages(HidP_Output), kind.buttons) << kind.name;
        EXPECT_EQ(device.Caps().OutputReportByteLength, 2) << kind.name;
    }
}

TEST(ValueCaps, DescribeTheField) {
    const auto caps = ParsedDevice(Application()
                                       .ReportId(5)
                                       .Raw({0x16, 0x00, 0x80, 0x26, 0xFF, 0x7F})
                                       .Raw({0x35, 0x9C, 0x45, 0x64, 0x55, 0x0E, 0x65, 0x11})
                                       .ReportSize(16)
                                       .ReportCount(1)
                                       .Usage(0x30)
                                       .Main(Main::Input, 0x46))  // variable, relative, null state
                          .ValueCaps(HidP_Input)
                          .at(0);
    EXPECT_EQ(caps.UsagePage, kPage);
    EXPECT_EQ(caps.ReportID, 5);
    EXPECT_EQ(caps.BitField, 0x46);
    EXPECT_FALSE(caps.IsAlias);
    EXPECT_FALSE(caps.IsAbsolute);
    EXPECT_TRUE(caps.HasNull);
    EXPECT_EQ(caps.BitSize, 16);
    EXPECT_EQ(caps.ReportCount, 1);
    EXPECT_EQ(caps.LogicalMin, -32768);
    EXPECT_EQ(caps.LogicalMax, 32767);
    EXPECT_EQ(caps.PhysicalMin, -100);
    EXPECT_EQ(caps.PhysicalMax, 100);
    EXPECT_EQ(caps.UnitsExp, 0x0Eu);
    EXPECT_EQ(caps.Units, 0x11u);
}

TEST(ValueCaps, WithoutTheFlagsAreAbsoluteAndHaveNoNull) {
    const auto caps =
        ParsedDevice(Application().Value(Main::Input, 0x30, 8, 0xFF)).ValueCaps(HidP_Input).at(0);
    EXPECT_TRUE(caps.IsAbsolute);
    EXPECT_FALSE(caps.HasNull);
    EXPECT_EQ(caps.LogicalMax, 255);
}

// Two constant fields, of which one has a usage.
TEST(ButtonsAndValues, AConstantOfUsageZeroTakesTheRoomOfItsField) {
    const ParsedDevice device(Application().ReportSize(8).ReportCount(2).Usage(0).Usage(0x20).Main(
        Main::Output, kConstant | kDataVariable));
    ASSERT_EQ(device.ValueCaps(HidP_Output).size(), 1u);
    EXPECT_EQ(device.ValueCaps(HidP_Output).at(0).NotRange.DataIndex, 0);
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 0xAA, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 0, 0xAA}));
}

TEST(ValueCaps, HaveASignedUnitExponent) {
    const std::pair<Bytes, ULONG> exponents[] = {{{0x55, 0xFD}, static_cast<ULONG>(-3)},
                                                 {{0x56, 0xFE, 0xFF}, static_cast<ULONG>(-2)},
                                                 {{0x55, 0x0D}, 0x0D},
                                                 {{0x55, 0x03}, 3}};
    for (const auto& [item, exponent] : exponents) {
        const ParsedDevice device(Application().Raw(item).Value(Main::Input, 0x30, 8, 0xFF));
        EXPECT_EQ(device.ValueCaps(HidP_Input).at(0).UnitsExp, exponent);
    }
}

TEST(ValueCaps, WithoutLimitsAreZeroToOne) {
    const auto caps = ParsedDevice(Application().ReportSize(8).ReportCount(1).Usage(0x30).Main(
                                       Main::Input, kDataVariable))
                          .ValueCaps(HidP_Input)
                          .at(0);
    EXPECT_EQ(caps.LogicalMin, 0);
    EXPECT_EQ(caps.LogicalMax, 1);
    EXPECT_EQ(caps.PhysicalMin, 0);
    EXPECT_EQ(caps.PhysicalMax, 0);
}

TEST(ValueCaps, OfARangeHaveACountOfOne) {
    const auto caps =
        ParsedDevice(
            Application().ReportSize(8).ReportCount(3).UsageMinimum(0x40).UsageMaximum(0x42).Main(
                Main::Output, kDataVariable))
            .ValueCaps(HidP_Output);
    ASSERT_EQ(caps.size(), 1u);
    EXPECT_TRUE(caps[0].IsRange);
    EXPECT_EQ(caps[0].ReportCount, 1);
}

// Both listing calls treat their 16-bit length alike.
template <typename Record>
struct Listing {
    NTSTATUS (*call)(HIDP_REPORT_TYPE, Record*, PUSHORT, PHIDP_PREPARSED_DATA);

    void KeepsTheLengthRules(const ParsedDevice& device) const {
        std::vector<Record> list(4);
        USHORT length = 4;
        EXPECT_EQ(call(HidP_Output, list.data(), &length, device.Preparsed()), HIDP_STATUS_SUCCESS);
        EXPECT_EQ(length, 2);

        list[0].UsagePage = 0x1234;
        length = 1;
        EXPECT_EQ(call(HidP_Output, list.data(), &length, device.Preparsed()),
                  HIDP_STATUS_BUFFER_TOO_SMALL);
        EXPECT_EQ(length, 2);
        EXPECT_EQ(list[0].UsagePage, 0x1234);

        length = 4;
        EXPECT_EQ(call(HidP_Feature, list.data(), &length, device.Preparsed()),
                  HIDP_STATUS_USAGE_NOT_FOUND);
        EXPECT_EQ(length, 0);

        const auto noType = static_cast<HIDP_REPORT_TYPE>(3);
        EXPECT_EQ(call(noType, list.data(), &length, device.Preparsed()),
                  HIDP_STATUS_INVALID_REPORT_TYPE);
        EXPECT_EQ(call(noType, list.data(), &length, nullptr), HIDP_STATUS_INVALID_PREPARSED_DATA);
    }
};

TEST(CapabilityLists, TakeAndReturnTheirLength) {
    const ParsedDevice device(Application()
                                  .Value(Main::Output, 0x20, 8, 0xFF)
                                  .Value(Main::Output, 0x21, 8, 0xFF)
                                  .Buttons(Main::Output, 0x01, 0x04)
                                  .Buttons(Main::Output, 0x05, 0x08));
    Listing<HIDP_VALUE_CAPS>{HidP_GetValueCaps}.KeepsTheLengthRules(device);
    Listing<HIDP_BUTTON_CAPS>{HidP_GetButtonCaps}.KeepsTheLengthRules(device);
}

TEST(CapabilityLists, GetCapsNeedsPreparsedData) {
    HIDP_CAPS caps{};
    EXPECT_EQ(HidP_GetCaps(nullptr, &caps), HIDP_STATUS_INVALID_PREPARSED_DATA);
}

}  // namespace
}  // namespace simulator::hid
