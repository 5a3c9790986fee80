// The HidP calls in the machine's record, and faults in their place.
#include <gtest/gtest.h>

#include "testing/simulator/Machine.h"
#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

using Texts = std::vector<std::string>;

class RecordedCalls : public testing::Test {
 protected:
    void SetUp() override { Machine::Get().Reset(); }
    void TearDown() override { Machine::Get().Reset(); }

    ParsedDevice device_{Application()
                             .ReportId(2)
                             .Value(Main::Output, 0x20, 8, 0xFF)
                             .Buttons(Main::Output, 0x01, 0x08)
                             .Value(Main::Input, 0x48, 8, 0xFF)
                             .Buttons(Main::Input, 0x40, 0x47)
                             .Value(Main::Feature, 0x62, 16, 2000)};
};

TEST_F(RecordedCalls, HaveTheirArguments) {
    HIDP_CAPS caps{};
    HidP_GetCaps(device_.Preparsed(), &caps);
    HIDP_VALUE_CAPS value{};
    HIDP_BUTTON_CAPS button{};
    HIDP_LINK_COLLECTION_NODE node{};
    ULONG nodes = 1;
    HidP_GetLinkCollectionNodes(&node, &nodes, device_.Preparsed());
    USHORT count = 3;
    HidP_GetValueCaps(HidP_Input, &value, &count, device_.Preparsed());
    count = 1;
    HidP_GetButtonCaps(HidP_Output, &button, &count, device_.Preparsed());
    HidP_MaxUsageListLength(HidP_Input, 0, device_.Preparsed());
    device_.Get(HidP_Input, {2, 0, 0}, kPage, 0, 9);
    Bytes report{0, 0, 0};
    device_.Set(HidP_Output, {0x01, 0x04}, report);
    device_.Unset(HidP_Output, {0x0A}, report);
    device_.SetValue(HidP_Output, 0x20, 0x3, report);
    ULONG out = 0;
    device_.GetValue(HidP_Feature, 0x62, out, {2, 0, 0});
    EXPECT_EQ(Machine::Get().CallTexts(),
              (Texts{"HidP_GetCaps()", "HidP_GetLinkCollectionNodes(1)",
                     "HidP_GetValueCaps(input, 3)", "HidP_GetButtonCaps(output, 1)",
                     "HidP_MaxUsageListLength(input, 0x0)", "HidP_GetUsages(input, 0xff80, 0, 9)",
                     "HidP_SetUsages(output, 0xff80, 0, [0x1 0x4], 2)",
                     "HidP_UnsetUsages(output, 0xff80, 0, [0xa], 1)",
                     "HidP_SetUsageValue(output, 0xff80, 0, 0x20, 0x3)",
                     "HidP_GetUsageValue(feature, 0xff80, 0, 0x62)"}));
}

TEST_F(RecordedCalls, NameAnUnknownReportTypeByItsNumber) {
    HidP_MaxUsageListLength(static_cast<HIDP_REPORT_TYPE>(3), kPage, device_.Preparsed());
    EXPECT_EQ(Machine::Get().CallTexts(), (Texts{"HidP_MaxUsageListLength(3, 0xff80)"}));
}

TEST_F(RecordedCalls, HaveTheLengthThatWentIn) {
    EXPECT_EQ(device_.Get(HidP_Input, {2, 0, 0xFF}, kPage, 0, 2).length, 8u);
    EXPECT_EQ(Machine::Get().CallTexts(), (Texts{"HidP_GetUsages(input, 0xff80, 0, 2)"}));
}

TEST_F(RecordedCalls, AFaultStandsInForTheWork) {
    Machine::Get().FailNext("HidP_SetUsageValue", Fault::Status(HIDP_STATUS_USAGE_NOT_FOUND));
    Bytes report{0, 0, 0};
    EXPECT_EQ(device_.SetValue(HidP_Output, 0x20, 3, report), HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(report, (Bytes{0, 0, 0}));
    EXPECT_EQ(device_.SetValue(HidP_Output, 0x20, 3, report), HIDP_STATUS_SUCCESS);
}

TEST_F(RecordedCalls, AFaultWithoutAStatusIsAnInternalError) {
    for (const char* function :
         {"HidP_GetCaps", "HidP_GetLinkCollectionNodes", "HidP_GetValueCaps", "HidP_GetButtonCaps",
          "HidP_MaxUsageListLength", "HidP_GetUsages", "HidP_SetUsages", "HidP_UnsetUsages",
          "HidP_SetUsageValue", "HidP_GetUsageValue"}) {
        Machine::Get().FailNext(function, Fault::Error(0));
    }
    HIDP_CAPS caps{};
    HIDP_VALUE_CAPS value{};
    HIDP_BUTTON_CAPS button{};
    HIDP_LINK_COLLECTION_NODE node{};
    ULONG nodes = 1;
    USHORT count = 1;
    ULONG out = 0;
    Bytes report{0, 0, 0};
    const NTSTATUS internal = HIDP_STATUS_INTERNAL_ERROR;
    const auto preparsed = device_.Preparsed();
    EXPECT_EQ(HidP_GetCaps(preparsed, &caps), internal);
    EXPECT_EQ(HidP_GetLinkCollectionNodes(&node, &nodes, preparsed), internal);
    EXPECT_EQ(HidP_GetValueCaps(HidP_Input, &value, &count, preparsed), internal);
    EXPECT_EQ(HidP_GetButtonCaps(HidP_Input, &button, &count, preparsed), internal);
    EXPECT_EQ(HidP_MaxUsageListLength(HidP_Input, 0, preparsed), 0u);
    EXPECT_EQ(device_.Get(HidP_Input, report).status, internal);
    EXPECT_EQ(device_.Set(HidP_Output, {1}, report).status, internal);
    EXPECT_EQ(device_.Unset(HidP_Output, {1}, report).status, internal);
    EXPECT_EQ(device_.SetValue(HidP_Output, 0x20, 1, report), internal);
    EXPECT_EQ(device_.GetValue(HidP_Feature, 0x62, out, report), internal);
}

TEST_F(RecordedCalls, PreparsedDataUsedAfterItsEndIsMisuseNullIsNot) {
    const PHIDP_PREPARSED_DATA freed = ParsedDevice(Application()).Preparsed();
    HIDP_CAPS caps{};
    USAGE list[1] = {};
    ULONG length = 1;
    char report[1] = {};
    HidP_GetCaps(nullptr, &caps);
    EXPECT_EQ(Machine::Get().Misuse(), Texts{});
    HidP_GetCaps(freed, &caps);
    HidP_GetUsages(HidP_Input, kPage, 0, list, &length, freed, report, 1);
    EXPECT_EQ(Machine::Get().Misuse(),
              (Texts{"HidP_GetCaps: preparsed data that is not in use",
                     "HidP_GetUsages: preparsed data that is not in use"}));
}

}  // namespace
}  // namespace simulator::hid
