#include "testing/unit/simulator/SimulatorTest.h"

#include <thread>

namespace simulator_test {
namespace {

class Unplugging : public SimulatorTest {};

TEST_F(Unplugging, FailsPendingReadsAndHeldWrites) {
    const auto device = Plug();
    device->SetWriteBehaviour(WriteBehaviour::Hold);
    const HANDLE file = Open(*device);
    Operation& read = StartRead(file);
    Operation& write = MakeOperation({2, 0, 0, 0, 0, 0});
    EXPECT_EQ(Write(file, write), ERROR_IO_PENDING);

    device->Unplug();
    EXPECT_TRUE(IsSignalled(read.event));
    EXPECT_TRUE(IsSignalled(write.event));
    EXPECT_EQ(Result(file, read), ERROR_DEVICE_NOT_CONNECTED);
    EXPECT_EQ(Result(file, write), ERROR_DEVICE_NOT_CONNECTED);
    EXPECT_TRUE(device->Outputs().empty());
    EXPECT_EQ(device->OpenHandles(), 1U);
}

TEST_F(Unplugging, WakesAThreadThatWaitsForARead) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& read = StartRead(file);
    std::thread puller([&] {
        EXPECT_TRUE(machine_.WaitForCalls("WaitForSingleObject", 1));
        device->Unplug();
    });
    EXPECT_EQ(WaitForSingleObject(read.event, INFINITE), WAIT_OBJECT_0);
    puller.join();
}

TEST_F(Unplugging, FailsNewIoOnOldHandles) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    device->SendInput({1, 2});
    device->Unplug();

    EXPECT_EQ(Read(file, MakeOperation(Bytes(5))), ERROR_DEVICE_NOT_CONNECTED);
    EXPECT_EQ(Write(file, MakeOperation({2, 0, 0, 0, 0, 0})), ERROR_DEVICE_NOT_CONNECTED);
    BYTE feature[5] = {4};
    wchar_t text[32] = {};
    HIDD_ATTRIBUTES attributes{sizeof(HIDD_ATTRIBUTES), 0, 0, 0};
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    EXPECT_FALSE(HidD_GetFeature(file, feature, sizeof feature));
    EXPECT_FALSE(HidD_SetFeature(file, feature, sizeof feature));
    EXPECT_FALSE(HidD_GetProductString(file, text, sizeof text));
    EXPECT_FALSE(HidD_GetAttributes(file, &attributes));
    EXPECT_FALSE(HidD_GetPreparsedData(file, &preparsed));
    EXPECT_EQ(GetLastError(), ERROR_DEVICE_NOT_CONNECTED);
    EXPECT_EQ(preparsed, nullptr);
}

TEST_F(Unplugging, TakesThePathAway) {
    const auto device = Plug();
    device->Unplug();
    EXPECT_EQ(Open(*device, 0), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(Unplugging, IsUndoneByPluggingInButOldHandlesStayDead) {
    const auto device = Plug();
    const HANDLE old = Open(*device, kReadWrite, 0);
    device->Unplug();
    device->PlugIn();
    const HANDLE fresh = Open(*device, kReadWrite, 0);
    ASSERT_NE(fresh, INVALID_HANDLE_VALUE);

    device->SendInput({1, 5});
    EXPECT_EQ(Read(old, MakeOperation(Bytes(5))), ERROR_DEVICE_NOT_CONNECTED);
    EXPECT_EQ(Read(fresh, MakeOperation(Bytes(5))), ERROR_SUCCESS);
}

TEST_F(Unplugging, EndsAnotherProcessesHold) {
    const auto device = Plug();
    device->HoldElsewhere();
    device->Unplug();
    device->PlugIn();
    EXPECT_NE(Open(*device), INVALID_HANDLE_VALUE);
}

TEST_F(Unplugging, IsWhatAResetDoesToAllDevices) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& read = StartRead(file);
    machine_.Reset();
    EXPECT_EQ(Result(file, read), ERROR_DEVICE_NOT_CONNECTED);
    Close(file);
    EXPECT_TRUE(machine_.Misuse().empty());
}

}  // namespace
}  // namespace simulator_test
