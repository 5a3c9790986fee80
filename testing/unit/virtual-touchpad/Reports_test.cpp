#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testing/unit/virtual-touchpad/HostFile.h"
#include "testing/unit/virtual-touchpad/PluggedTouchpad.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"

namespace virtual_touchpad {
namespace {

using namespace virtual_touchpad::events;
using testing::ElementsAre;

constexpr std::int32_t kStatusDeviceNotReady = static_cast<std::int32_t>(0xC00000A3);

// Returns an output report of full length that starts with these bytes.
Report Output(std::initializer_list<std::uint8_t> bytes) {
    Report report(bytes);
    report.resize(kOutputReportLength);
    return report;
}

TEST(Reports, AnInputReportEndsAPendingRead) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    auto read = host.Read(3);
    EXPECT_FALSE(read->WaitFor(kShortly));
    touchpad.Control().Press(kShareScreenButton);
    ASSERT_TRUE(read->WaitFor(kSoon));
    DWORD size = 0;
    EXPECT_EQ(read->Result(&size), ERROR_SUCCESS);
    EXPECT_EQ(size, 3u);
    EXPECT_THAT(read->buffer, ElementsAre(kButtonReportId, 0x04, 0x00));
}

TEST(Reports, SeveralReadsEndInOrder) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    auto first = host.Read(3);
    auto second = host.Read(3);
    touchpad.Control().SendEvent(kSync);
    touchpad.Control().SendFirmwareState(0x81);
    ASSERT_TRUE(first->WaitFor(kSoon));
    ASSERT_TRUE(second->WaitFor(kSoon));
    EXPECT_THAT(first->buffer, ElementsAre(kButtonReportId, 0x01, 0x00));
    EXPECT_THAT(second->buffer, ElementsAre(kButtonReportId, 0x00, 0x81));
}

TEST(Reports, EveryHandleGetsTheInput) {
    PluggedTouchpad touchpad;
    HostFile one(touchpad.Path());
    HostFile two(touchpad.Path());
    auto first = one.Read(3);
    auto second = two.Read(3);
    touchpad.Control().SendEvent(kDisabled);
    EXPECT_TRUE(first->WaitFor(kSoon));
    EXPECT_TRUE(second->WaitFor(kSoon));
}

// The class driver passes on as many bytes as the report named by byte 0 has.
TEST(Reports, AWriteArrivesInTheLengthOfItsReport) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    EXPECT_EQ(host.WriteAndWait(Output({kLightReportId, 1, 2, 3, 4, 5, 6, 7, 0x0F})),
              ERROR_SUCCESS);
    EXPECT_EQ(host.WriteAndWait(Output({kRequestReportId})), ERROR_SUCCESS);
    const auto outputs = touchpad.Device().WaitForOutputs(2, kSoon);
    ASSERT_EQ(outputs.size(), 2u);
    EXPECT_EQ(outputs[0].sequence, 1u);
    EXPECT_THAT(outputs[0].bytes, ElementsAre(kLightReportId, 1, 2, 3, 4, 5, 6, 7, 0x0F, 0, 0, 0));
    EXPECT_EQ(outputs[1].sequence, 2u);
    EXPECT_EQ(outputs[1].bytes.size(), kOutputReportLength);
}

TEST(Reports, AMissingReportIdIsFilledIn) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    Report request = Output({0});
    request[kRequestByteOffset] = 1;
    EXPECT_EQ(host.WriteAndWait(request), ERROR_SUCCESS);
    EXPECT_EQ(host.WriteAndWait(Output({0, 9})), ERROR_SUCCESS);
    const auto outputs = touchpad.Device().WaitForOutputs(2, kSoon);
    ASSERT_EQ(outputs.size(), 2u);
    EXPECT_EQ(outputs[0].bytes[0], kRequestReportId);
    EXPECT_TRUE(IsStateRequest(outputs[0]));
    EXPECT_EQ(outputs[1].bytes[0], kLightReportId);
    EXPECT_TRUE(IsLightReport(outputs[1]));
}

TEST(Reports, WritesAreKeptInOrderAndCounted) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    constexpr std::uint8_t kWrites = VIRTUAL_HID_OUTPUT_HISTORY + 6;
    for (std::uint8_t i = 0; i < kWrites; ++i) {
        ASSERT_EQ(host.WriteAndWait(Output({kLightReportId, i})), ERROR_SUCCESS);
    }
    EXPECT_EQ(touchpad.Device().LastSequence(), kWrites);
    const auto all = touchpad.Device().OutputReports();
    ASSERT_EQ(all.size(), std::size_t{VIRTUAL_HID_OUTPUT_HISTORY});
    EXPECT_EQ(all.front().sequence, 7u);
    EXPECT_EQ(all.front().bytes[1], 6);
    EXPECT_EQ(touchpad.Device().OutputReports(kWrites - 2u).size(), 2u);
}

TEST(Reports, AHeldWriteStaysPendingUntilReleased) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    touchpad.Device().HoldWrites(true);
    auto first = host.Write(Output({kLightReportId, 1}));
    auto second = host.Write(Output({kLightReportId, 2}));
    EXPECT_FALSE(first->WaitFor(kShortly));
    EXPECT_EQ(touchpad.Device().State().heldWrites, 2u);
    EXPECT_EQ(touchpad.Device().LastSequence(), 0u);

    touchpad.Device().HoldWrites(false);
    ASSERT_TRUE(first->WaitFor(kSoon));
    ASSERT_TRUE(second->WaitFor(kSoon));
    DWORD size = 0;
    EXPECT_EQ(first->Result(&size), ERROR_SUCCESS);
    const auto outputs = touchpad.Device().OutputReports();
    ASSERT_EQ(outputs.size(), 2u);
    EXPECT_EQ(outputs[0].bytes[1], 1);
    EXPECT_EQ(outputs[1].bytes[1], 2);
}

TEST(Reports, AHeldWriteCanBeCancelled) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    touchpad.Device().HoldWrites(true);
    auto write = host.Write(Output({kLightReportId}));
    CancelIo(host.Handle());
    ASSERT_TRUE(write->WaitFor(kSoon));
    DWORD size = 0;
    EXPECT_EQ(write->Result(&size), ERROR_OPERATION_ABORTED);
    EXPECT_EQ(touchpad.Device().State().heldWrites, 0u);
}

TEST(Reports, OneWriteFailsOnOrder) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    touchpad.Device().FailNextWrite(kStatusDeviceNotReady);
    EXPECT_EQ(host.WriteAndWait(Output({kLightReportId})), ERROR_NOT_READY);
    EXPECT_EQ(touchpad.Device().LastSequence(), 0u);
    EXPECT_EQ(host.WriteAndWait(Output({kLightReportId})), ERROR_SUCCESS);
    EXPECT_EQ(touchpad.Device().LastSequence(), 1u);
}

TEST(Reports, WaitingForAnOutputReturnsIt) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    ASSERT_EQ(host.WriteAndWait(Output({kLightReportId, 1})), ERROR_SUCCESS);
    ASSERT_EQ(host.WriteAndWait(Output({kLightReportId, 2})), ERROR_SUCCESS);
    const auto isSecond = [](const OutputReport& report) { return report.bytes[1] == 2; };
    const auto found = touchpad.Device().WaitForOutput(isSecond, kSoon);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->sequence, 2u);
    EXPECT_FALSE(touchpad.Device().WaitForOutput(isSecond, kShortly, 2).has_value());
}

TEST(Reports, LightsAreDecoded) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    EXPECT_EQ(touchpad.Control().CurrentLights().Brightness(0x20), 0);
    ASSERT_EQ(host.WriteAndWait(Output({kLightReportId, 10, 20, 30, 40, 50, 60, 8, 0x05})),
              ERROR_SUCCESS);
    const Lights lights = touchpad.Control().CurrentLights();
    EXPECT_EQ(lights.Brightness(0x20), 10);
    EXPECT_EQ(lights.Brightness(0x27), 60);
    EXPECT_EQ(lights.breathing, 8);
    EXPECT_THAT(lights.active, ElementsAre(1, 3));
}

}  // namespace
}  // namespace virtual_touchpad
