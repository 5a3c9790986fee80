// A device's handle is closed after the calls that use it and never used afterwards.
#include "touchpad/DeviceHandle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "testing/simulator/Machine.h"

namespace {

using simulator::Machine;
using testing::IsEmpty;
using vela::DeviceHandle;

class DeviceHandleTest : public testing::Test {
 protected:
    DeviceHandleTest() { machine_.Reset(); }

    static HANDLE NewHandle() { return CreateEventW(nullptr, TRUE, FALSE, nullptr); }

    Machine& machine_ = Machine::Get();
};

TEST_F(DeviceHandleTest, GivesTheHandleUntilItIsClosed) {
    const HANDLE handle = NewHandle();
    DeviceHandle device(handle);
    EXPECT_TRUE(device.IsOpen());
    EXPECT_EQ(device.Use([](HANDLE used) { return used; }), handle);
    device.Close();
    EXPECT_FALSE(device.IsOpen());
    EXPECT_EQ(device.Use([](HANDLE used) { return used; }), nullptr);
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
}

TEST_F(DeviceHandleTest, ClosesOnce) {
    DeviceHandle device(NewHandle());
    device.Close();
    device.Close();
    EXPECT_EQ(machine_.CountCalls("CloseHandle"), 1U);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(DeviceHandleTest, ClosesAtItsEnd) {
    { const DeviceHandle device(NewHandle()); }
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
}

TEST_F(DeviceHandleTest, OfNoDeviceClosesNothing) {
    { DeviceHandle none(nullptr); }
    EXPECT_EQ(machine_.CountCalls("CloseHandle"), 0U);
}

TEST_F(DeviceHandleTest, IsClosedBehindTheCallsThatUseIt) {
    DeviceHandle device(NewHandle());
    std::atomic<bool> inside{false};
    std::atomic<bool> leave{false};
    std::thread user([&] {
        device.Use([&](HANDLE) {
            inside = true;
            while (!leave) std::this_thread::yield();
            EXPECT_EQ(machine_.OpenHandles().size(), 1U);
        });
    });
    while (!inside) std::this_thread::yield();
    std::thread closing([&] { device.Close(); });
    // The closing thread waits now, and no further call gets the handle.
    while (device.IsOpen()) std::this_thread::yield();
    EXPECT_EQ(device.Use([](HANDLE used) { return used; }), nullptr);
    leave = true;
    user.join();
    closing.join();
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
}

TEST_F(DeviceHandleTest, ServesAnyNumberOfCallsAtOnce) {
    DeviceHandle device(NewHandle());
    std::atomic<int> inside{0};
    std::vector<std::thread> users;
    for (int i = 0; i < 3; ++i) {
        users.emplace_back([&] {
            device.Use([&](HANDLE) {
                ++inside;
                while (inside < 3) std::this_thread::yield();
            });
        });
    }
    for (std::thread& user : users) user.join();
    EXPECT_EQ(inside, 3);
}

}  // namespace
