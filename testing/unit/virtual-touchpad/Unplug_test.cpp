#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "testing/unit/virtual-touchpad/HostFile.h"
#include "testing/unit/virtual-touchpad/PluggedTouchpad.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"

namespace virtual_touchpad {
namespace {

using namespace virtual_touchpad::events;

// Sends input reports continuously while the object lives and the device exists.
class PouringReports {
 public:
    explicit PouringReports(TouchpadControl& touchpad)
        : thread_([this, &touchpad] { Pour(touchpad); }) {}
    ~PouringReports() {
        ended_ = true;
        thread_.join();
    }
    PouringReports(const PouringReports&) = delete;
    PouringReports& operator=(const PouringReports&) = delete;

 private:
    void Pour(TouchpadControl& touchpad) {
        try {
            while (!ended_) touchpad.SendEvent(kSync);
        } catch (const std::runtime_error&) {
            // The device was unplugged.
        }
    }

    std::atomic<bool> ended_{false};
    std::thread thread_;  // last: it uses the others
};

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

TEST(Unplug, TheControlLinkReportsThatTheDeviceIsGone) {
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
    second.Control().SendEvent(kSync);
    EXPECT_TRUE(read->WaitFor(kSoon));
}

TEST(Unplug, PluggingInAndOutManyTimes) {
    for (int i = 0; i < 20; ++i) {
        PluggedTouchpad touchpad;
        HostFile host(touchpad.Path());
        auto read = host.Read(3);
        touchpad.Control().SendEvent(kSync);
        ASSERT_TRUE(read->WaitFor(kSoon)) << "round " << i;
    }
}

// The system shows a device's interface before it has noted its owner; Plug waits for that.
TEST(Unplug, RightAfterPluggingInLeavesNothingBehind) {
    for (int i = 0; i < 20; ++i) {
        PluggedTouchpad touchpad;
        EXPECT_GE(touchpad.Device().State().enumerations, 2u) << "round " << i;
        HostFile old(touchpad.Path(), 0);
        touchpad.PullOut();
        EXPECT_FALSE(HostFile(touchpad.Path(), 0).IsOpen()) << "round " << i;
        EXPECT_NE(old.AttributesError(), ERROR_SUCCESS) << "round " << i;
    }
}

// The class driver fetches every report with a read of its own, so a read may be on its way to the
// driver when the device is removed.
TEST(Unplug, WorksWhileReportsPour) {
    for (int i = 0; i < 5; ++i) {
        PluggedTouchpad touchpad;
        HostFile host(touchpad.Path());
        auto read = host.Read(3);
        PouringReports reports(touchpad.Control());
        ASSERT_TRUE(read->WaitFor(kSoon)) << "round " << i;
        touchpad.PullOut();
    }
}

}  // namespace
}  // namespace virtual_touchpad
