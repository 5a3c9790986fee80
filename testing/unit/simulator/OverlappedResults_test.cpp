#include "testing/unit/simulator/SimulatorTest.h"

#include <thread>

namespace simulator_test {
namespace {

class OverlappedResults : public SimulatorTest {};

TEST_F(OverlappedResults, IssuingResetsTheEvent) {
    const HANDLE file = Open(*Plug());
    Operation& read = MakeOperation(Bytes(5));
    SetEvent(read.event);
    EXPECT_EQ(Read(file, read), ERROR_IO_PENDING);
    EXPECT_FALSE(IsSignalled(read.event));
}

TEST_F(OverlappedResults, WaitsForTheEvent) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& read = StartRead(file);
    std::thread sender([&] {
        EXPECT_TRUE(machine_.WaitForCalls("GetOverlappedResult", 1));
        device->SendInput({1, 9});
    });
    DWORD transferred = 0;
    EXPECT_TRUE(GetOverlappedResult(file, &read.overlapped, &transferred, TRUE));
    EXPECT_EQ(transferred, 5U);
    EXPECT_EQ(read.bytes[1], 9);
    sender.join();
}

TEST_F(OverlappedResults, WaitForTheFileWhereTheRecordNamesNoEvent) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& read = MakeOperation(Bytes(5));
    read.overlapped.hEvent = nullptr;
    EXPECT_EQ(Read(file, read), ERROR_IO_PENDING);
    EXPECT_EQ(WaitForSingleObject(file, 0), WAIT_TIMEOUT);
    device->SendInput({1, 9});
    EXPECT_EQ(WaitForSingleObject(file, 0), WAIT_OBJECT_0);
    EXPECT_TRUE(GetOverlappedResult(file, &read.overlapped, nullptr, TRUE));
}

TEST_F(OverlappedResults, TakeAnEventThatSomeoneElseSignalledForTheEnd) {
    const HANDLE file = Open(*Plug());
    Operation& read = StartRead(file);
    SetEvent(read.event);
    DWORD transferred = 7;
    EXPECT_TRUE(GetOverlappedResult(file, &read.overlapped, &transferred, TRUE));
    EXPECT_EQ(transferred, 0U);
    EXPECT_FALSE(HasOverlappedIoCompleted(&read.overlapped));
}

TEST_F(OverlappedResults, DoNotTouchTheEventOfAnEndedOperation) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& read = MakeOperation(Bytes(5), FALSE);
    EXPECT_EQ(Read(file, read), ERROR_IO_PENDING);
    device->SendInput({1});
    EXPECT_TRUE(GetOverlappedResult(file, &read.overlapped, nullptr, TRUE));
    EXPECT_TRUE(IsSignalled(read.event));
    EXPECT_FALSE(IsSignalled(read.event));
}

TEST_F(OverlappedResults, RecordTheStatusOfTheKernel) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& done = StartRead(file);
    Operation& failed = StartRead(file);
    EXPECT_EQ(done.overlapped.Internal, STATUS_PENDING);
    device->SendInput({1});
    device->FailPendingReads(ERROR_OPERATION_ABORTED);
    EXPECT_EQ(done.overlapped.Internal, 0U);
    EXPECT_EQ(static_cast<DWORD>(failed.overlapped.Internal), 0xC0000120U);
}

// A call that fails issues nothing, but leaves its record marked as pending.
TEST_F(OverlappedResults, StayMarkedAsPendingWhenTheCallFails) {
    const HANDLE file = Open(*Plug());
    Operation& read = MakeOperation(Bytes(2));
    EXPECT_EQ(Read(file, read), ERROR_INVALID_USER_BUFFER);
    EXPECT_FALSE(HasOverlappedIoCompleted(&read.overlapped));
}

TEST_F(OverlappedResults, GiveBackEveryErrorThatCanBeInjected) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    for (const DWORD error : {1U, 2U, 5U, 6U, 8U, 21U, 31U, 50U, 87U, 121U, 995U, 1117U, 1167U,
                              1450U, 1784U, 170U, 4711U}) {
        Operation& read = StartRead(file);
        device->FailPendingReads(error);
        EXPECT_EQ(Result(file, read), error);
        EXPECT_TRUE(HasOverlappedIoCompleted(&read.overlapped));
    }
}

TEST_F(OverlappedResults, CannotBeAwaitedWithoutAnythingToWaitOn) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& read = StartRead(file);
    EXPECT_TRUE(CloseHandle(read.event));
    EXPECT_FALSE(GetOverlappedResult(file, &read.overlapped, nullptr, TRUE));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

}  // namespace
}  // namespace simulator_test
