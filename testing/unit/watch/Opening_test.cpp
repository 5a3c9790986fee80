// Openings that fail, and ends at unlucky moments.
#include <thread>

#include "testing/unit/watch/WatchTest.h"

namespace watch_tests {

using kit::AllLit;

using OpeningTest = WatchTest;
using SlowOpeningTest = WatchTest;  // really waits

TEST_F(OpeningTest, IsTriedAgainWhileTheInterfaceIsNotReady) {
    Start().Change(LightAll);
    machine_.FailNext("CreateFileW", Fault::Error(ERROR_FILE_NOT_FOUND));
    machine_.FailNext("CreateFileW", Fault::Error(ERROR_FILE_NOT_FOUND), 1);
    const auto device = Plug();
    EXPECT_TRUE(WaitForLights(*device, AllLit()));
}

TEST_F(OpeningTest, OfATouchpadThatAnotherProgramHasNotifiesOnce) {
    const auto device = Plug();
    device->HoldElsewhere();
    Watch& watch = Start();
    watch.Change(LightAll);
    ASSERT_TRUE(WaitForEvents({"held"}));
    device->ReleaseElsewhere();
    EXPECT_TRUE(WaitForLights(*device, AllLit()));  // at one of the next tries
    EXPECT_TRUE(WaitForEvent("found"));
    EXPECT_EQ(Events().front(), "held");
}

TEST_F(OpeningTest, NotifiesOfAnotherProgramThatALaterTryFinds) {
    machine_.FailAlways("CreateFileW", Fault::Error(ERROR_FILE_NOT_FOUND));
    const auto device = Plug();
    device->HoldElsewhere();
    Start();
    ASSERT_TRUE(kit::WaitUntil([&] { return Scans() >= 3; }));
    machine_.StopFailing("CreateFileW");
    EXPECT_TRUE(WaitForEvents({"held"}));
}

TEST_F(OpeningTest, WaitsForASessionOfTheHostsOwn) {
    const auto device = Plug();
    const vela_agent::Library library(L"/host/VelaAgent.dll");
    std::optional<vela_agent::Session> session(library);
    Start().Change(LightAll);
    ASSERT_TRUE(WaitForEvents({"held"}));
    session.reset();
    EXPECT_TRUE(WaitForLights(*device, AllLit()));
}

TEST_F(OpeningTest, MayBeUnderWayWhenTheWatchEnds) {
    for (int i = 0; i < 50; ++i) {
        const auto device = Plug();
        Start().Change(LightAll);
        if (i % 2 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(i));
        Stop();
        EXPECT_EQ(device->OpenHandles(), 0U);
        device->Unplug();
    }
    EXPECT_THAT(machine_.Misuse(), testing::IsEmpty());
}

TEST_F(OpeningTest, FindsTheTouchpadGoneWhileItSetsTheLights) {
    for (std::size_t writes = 0; writes < 6; ++writes) {
        const auto device = Plug();
        machine_.FailNext("WriteFile", Fault::Error(ERROR_DEVICE_NOT_CONNECTED), writes);
        Start().Change(LightAll);
        kit::WaitUntil([&] { return IsOpen(); });
        device->Unplug();
        const auto next = Plug();
        EXPECT_TRUE(WaitForLights(*next, AllLit()));
        Stop();
        next->Unplug();
        machine_.StopFailing("WriteFile");
    }
}

TEST_F(OpeningTest, HandlersMayCallTheWatch) {
    const auto device = Plug();
    std::optional<Watch> watch;
    std::mutex mutex;
    vela_agent::WatchHandlers handlers;
    handlers.onFound = [&] {
        const std::lock_guard<std::mutex> lock(mutex);  // until `watch` is there
        watch->Change(LightAll);
    };
    handlers.onPress = [&](VelaButton button, bool newLight) {
        watch->Change([&](Settings& settings) { settings.brightness = newLight ? 77 : 3; });
        static_cast<void>(button);
    };
    {
        const std::lock_guard<std::mutex> lock(mutex);
        watch.emplace(vela_agent::Library(L"/host/VelaAgent.dll"), handlers);
    }
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    device->SendInput(kit::InputReport({0x43}));
    EXPECT_TRUE(WaitForLights(*device, kit::AllLitAt(77)));
}

TEST_F(SlowOpeningTest, OfATouchpadThatAnotherProgramHasForLongNeedsARefresh) {
    const auto device = Plug();
    device->HoldElsewhere();
    Watch& watch = Start();
    watch.Change(LightAll);
    // Its own list, and nine tries, which take 13 seconds.
    ASSERT_TRUE(kit::WaitUntil([&] { return Scans() == 10; }, std::chrono::seconds(60)));
    EXPECT_EQ(Events(), std::vector<std::string>{"held"});
    watch.Refresh();
    EXPECT_TRUE(WaitForEvents({"held", "held"}));
    device->ReleaseElsewhere();
    watch.Refresh();
    EXPECT_TRUE(WaitForLights(*device, AllLit()));
}

TEST_F(SlowOpeningTest, NeedsARefreshWhereNothingIsNotified) {
    machine_.FailAlways("CreateWindowExW", Fault::Error(ERROR_ACCESS_DENIED));
    machine_.FailAlways("CM_Register_Notification", Fault::Error(0));
    Watch& watch = Start();
    watch.Change(LightAll);
    EXPECT_FALSE(watch.IsNotified());
    ASSERT_TRUE(kit::WaitUntil([&] { return Scans() == 9; }, std::chrono::seconds(60)));
    const auto device = Plug();
    EXPECT_FALSE(watch.IsOpen());
    watch.Refresh();
    EXPECT_TRUE(WaitForLights(*device, AllLit()));
    EXPECT_TRUE(WaitForEvent("found"));
}

}  // namespace watch_tests
