#include <gtest/gtest.h>

#include "virtual-touchpad/tests/HostFile.h"
#include "virtual-touchpad/tests/PluggedTouchpad.h"

namespace virtual_touchpad {
namespace {

TEST(Unplug, APendingReadFails) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    auto read = host.Read(3);
    touchpad.PullOut();
    ASSERT_TRUE(read->WaitFor(kSoon));
    DWORD size = 0;
    EXPECT_NE(read->Result(&size), ERROR_SUCCESS);
    EXPECT_NE(host.AttributesError(), ERROR_SUCCESS);
    EXPECT_NE(host.WriteAndWait(Report(kOutputReportLength)), ERROR_SUCCESS);
}

TEST(Unplug, AHeldWriteFails) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path());
    touchpad.Device().HoldWrites(true);
    auto write = host.Write(Report(kOutputReportLength));
    touchpad.PullOut();
    ASSERT_TRUE(write->WaitFor(kSoon));
    DWORD size = 0;
    EXPECT_NE(write->Result(&size), ERROR_SUCCESS);
}

TEST(Unplug, ThePathCannotBeOpenedAnyMore) {
    PluggedTouchpad touchpad;
    touchpad.PullOut();
    HostFile host(touchpad.Path(), 0);
    EXPECT_FALSE(host.IsOpen());
}

TEST(Unplug, TheControlLinkTellsThatTheDeviceIsGone) {
    PluggedTouchpad touchpad;
    touchpad.PullOut();
    EXPECT_THROW(touchpad.Device().State(), std::runtime_error);
}

TEST(Unplug, AnOldHandleStaysDeadAfterPluggingAnew) {
    PluggedTouchpad first;
    HostFile old(first.Path());
    first.PullOut();
    PluggedTouchpad second;
    EXPECT_NE(old.AttributesError(), ERROR_SUCCESS);
    HostFile fresh(second.Path());
    auto read = fresh.Read(3);
    second.Control().SendEvent(0x40);
    EXPECT_TRUE(read->WaitFor(kSoon));
}

TEST(Unplug, PluggingInAndOutManyTimes) {
    for (int i = 0; i < 20; ++i) {
        PluggedTouchpad touchpad;
        HostFile host(touchpad.Path());
        auto read = host.Read(3);
        touchpad.Control().SendEvent(0x40);
        ASSERT_TRUE(read->WaitFor(kSoon)) << "round " << i;
    }
}

}  // namespace
}  // namespace virtual_touchpad
