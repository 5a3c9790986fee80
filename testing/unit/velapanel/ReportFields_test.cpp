// The texts that describe reports.
#include <gmock/gmock.h>

#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "tools/velapanel/ReportFields.h"

namespace velapanel {
namespace {

using virtual_touchpad::Report;

struct Case {
    ReportLine (*describe)(const Report&);
    Report report;
    std::string fields;
};

TEST(ReportFields, NameTheFieldsOfAReport) {
    const Case cases[] = {
        {DescribeOutput,
         {2, 200, 0, 200, 200, 0, 200, 8, 0x0F, 0, 0, 0, 0},
         "200: camera on, screen, chat, mic off; breathing 8; all active"},
        {DescribeOutput,
         {2, 0, 255, 0, 3, 0, 0, 0, 0x05, 0, 0, 0, 0},
         "255: camera off; 3: chat; active: camera, chat"},
        {DescribeOutput, {2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, "all dark; none active"},
        {DescribeOutput,
         {2, 0, 0, 0, 0, 1, 0, 15, 0x0A, 0, 0, 0},
         "1: mic on; breathing 15; active: screen, mic"},
        {DescribeOutput,
         {3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1},
         "request for the firmware's state"},
        {DescribeOutput, {2, 1, 2}, "a report of another layout"},
        {DescribeOutput, {}, "a report of another layout"},
        {DescribeInput, {1, 0x02, 0}, "camera"},
        {DescribeInput, {1, 0x91, 0}, "SYNC, microphone, disabled"},
        {DescribeInput, {0x10, 0x6C, 0}, "share screen, chat, gesture, enabled"},
        {DescribeInput, {1, 0, 0}, "firmware state: normal"},
        {DescribeInput, {1, 0, 0xA0}, "firmware state: swipe off, touchpad disabled"},
        {DescribeInput, {1, 2}, "a report of another layout"},
        {DescribeFeature, {4, 9, 0x2C, 0x01, 9}, "click mode 300"},
        {DescribeFeature, {4, 9, 0, 0, 9}, "click mode off"},
        {DescribeFeature, {5, 0, 0, 0, 0}, "a report of another layout"},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(test.describe(test.report).fields, test.fields) << ToHex(test.report);
    }
}

TEST(ReportFields, AreBesideTheBytes) {
    const ReportLine line = DescribeInput({1, 0x02, 0xAF});
    EXPECT_EQ(line.kind, "input");
    EXPECT_EQ(line.bytes, "01 02 AF");
    EXPECT_EQ(DescribeOutput({}).kind, "output");
    EXPECT_EQ(DescribeFeature({}).kind, "feature");
}

TEST(ReportFields, TakeTheIntensityFromAmongItsNeighbours) {
    for (const unsigned intensity : {0U, 1U, 15U, 16U, 80U, 100U, 127U}) {
        const Report report = virtual_touchpad::HapticsReport(
            {0x0F, static_cast<std::uint8_t>(intensity), 0x1F, 0xFF});
        EXPECT_EQ(HapticLevel(report), intensity);
        EXPECT_EQ(DescribeFeature(report).fields, "haptic intensity " + std::to_string(intensity));
    }
}

}  // namespace
}  // namespace velapanel
