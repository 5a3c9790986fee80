#include "testing/unit/simulator/SimulatorTest.h"

namespace simulator_test {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class Reading : public SimulatorTest {};

TEST_F(Reading, IsPendingUntilAReportComes) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& read = StartRead(file);
    EXPECT_FALSE(HasOverlappedIoCompleted(&read.overlapped));
    EXPECT_EQ(Result(file, read), ERROR_IO_INCOMPLETE);
    EXPECT_FALSE(IsSignalled(read.event));
    EXPECT_EQ(device->PendingReads(), 1U);

    device->SendInput({5, 1, 2, 3, 4});
    DWORD transferred = 0;
    EXPECT_TRUE(HasOverlappedIoCompleted(&read.overlapped));
    EXPECT_TRUE(IsSignalled(read.event));
    EXPECT_EQ(Result(file, read, &transferred), ERROR_SUCCESS);
    EXPECT_EQ(transferred, 5U);
    EXPECT_THAT(read.bytes, ElementsAre(5, 1, 2, 3, 4));
    EXPECT_EQ(device->PendingReads(), 0U);
}

TEST_F(Reading, ThatIsPendingOrFailsHasTransferredNothing) {
    const auto device = Plug();
    Operation& read = MakeOperation(Bytes(5));
    DWORD transferred = 7;
    EXPECT_FALSE(ReadFile(Open(*device), read.bytes.data(), 5, &transferred, &read.overlapped));
    EXPECT_EQ(transferred, 0U);
    transferred = 7;
    EXPECT_FALSE(ReadFile(nullptr, read.bytes.data(), 5, &transferred, nullptr));
    EXPECT_EQ(transferred, 0U);
}

TEST_F(Reading, GivesTheWholeInputLengthOfAShorterReport) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& read = StartRead(file, 8);
    device->SendInput({1, 7});
    EXPECT_EQ(read.overlapped.InternalHigh, 5U);
    EXPECT_THAT(read.bytes, ElementsAre(1, 7, 0, 0, 0, 0xEE, 0xEE, 0xEE));
}

TEST_F(Reading, HasALeadingZeroWhereThereAreNoIds) {
    const auto device = Plug(DescriptorWithoutIds());
    const HANDLE file = Open(*device);
    Operation& read = StartRead(file, 3);
    device->SendInput({0, 8, 9});
    EXPECT_THAT(read.bytes, ElementsAre(0, 8, 9));
}

TEST_F(Reading, SucceedsAtOnceWhenAReportIsQueued) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    device->SendInput({1, 2, 3});
    Operation& read = MakeOperation(Bytes(5));
    DWORD transferred = 0;
    EXPECT_TRUE(ReadFile(file, read.bytes.data(), 5, &transferred, &read.overlapped));
    EXPECT_EQ(transferred, 5U);
    EXPECT_TRUE(IsSignalled(read.event));
    EXPECT_THAT(read.bytes, ElementsAre(1, 2, 3, 0, 0));
}

TEST_F(Reading, RefusesABufferShorterThanTheInputLength) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    EXPECT_EQ(Read(file, MakeOperation(Bytes(4))), ERROR_INVALID_USER_BUFFER);
    EXPECT_EQ(Read(file, MakeOperation({})), ERROR_INVALID_USER_BUFFER);
    EXPECT_EQ(device->PendingReads(), 0U);
}

TEST_F(Reading, FailsWhereThereIsNoInputReport) {
    const auto device = Plug(DescriptorWithoutInput());
    EXPECT_EQ(Read(Open(*device), MakeOperation(Bytes(8))), ERROR_INVALID_PARAMETER);
    EXPECT_THROW(device->SendInput({0}), std::invalid_argument);
}

TEST_F(Reading, NeedsAnOverlappedRecordAndABuffer) {
    const HANDLE file = Open(*Plug());
    Operation& read = MakeOperation(Bytes(5));
    EXPECT_FALSE(ReadFile(file, read.bytes.data(), 5, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(ReadFile(file, nullptr, 5, nullptr, &read.overlapped));
    EXPECT_EQ(GetLastError(), ERROR_NOACCESS);
}

TEST_F(Reading, CompletesSeveralReadsInTheirOrderWithOneReportEach) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& first = StartRead(file);
    Operation& second = StartRead(file);
    EXPECT_TRUE(device->WaitForPendingReads(2));
    device->SendInput({1, 0xA});
    EXPECT_TRUE(HasOverlappedIoCompleted(&first.overlapped));
    EXPECT_FALSE(HasOverlappedIoCompleted(&second.overlapped));
    device->SendInput({1, 0xB});
    EXPECT_EQ(first.bytes[1], 0xA);
    EXPECT_EQ(second.bytes[1], 0xB);
}

TEST_F(Reading, Keeps32ReportsAndDropsTheOldest) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    for (std::uint8_t i = 0; i < 33; ++i) device->SendInput({1, i});
    for (std::uint8_t i = 1; i < 33; ++i) {
        Operation& read = MakeOperation(Bytes(5));
        ASSERT_EQ(Read(file, read), ERROR_SUCCESS);
        EXPECT_EQ(read.bytes[1], i);
    }
    StartRead(file);
}

TEST_F(Reading, HasAQueueForEveryHandle) {
    const auto device = Plug();
    const HANDLE first = Open(*device);
    device->SendInput({1, 0xA});
    const HANDLE second = Open(*device);
    device->SendInput({1, 0xB});

    Operation& ofFirst = MakeOperation(Bytes(5));
    Operation& ofSecond = MakeOperation(Bytes(5));
    EXPECT_EQ(Read(first, ofFirst), ERROR_SUCCESS);
    EXPECT_EQ(Read(second, ofSecond), ERROR_SUCCESS);
    EXPECT_EQ(ofFirst.bytes[1], 0xA);
    EXPECT_EQ(ofSecond.bytes[1], 0xB);
}

TEST_F(Reading, OnOneHandleTakesNothingFromAnother) {
    const auto device = Plug();
    const HANDLE first = Open(*device);
    const HANDLE second = Open(*device);
    Operation& ofFirst = StartRead(first);
    Operation& ofSecond = StartRead(second);
    device->SendInput({1, 0xA});
    EXPECT_EQ(ofFirst.bytes[1], 0xA);
    EXPECT_EQ(ofSecond.bytes[1], 0xA);
}

TEST_F(Reading, EndsWithTheErrorThatADeviceGives) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& first = StartRead(file);
    Operation& second = StartRead(file);
    device->FailPendingReads(ERROR_IO_DEVICE);
    DWORD transferred = 1;
    EXPECT_EQ(Result(file, first, &transferred), ERROR_IO_DEVICE);
    EXPECT_EQ(transferred, 0U);
    EXPECT_TRUE(IsSignalled(first.event));
    EXPECT_EQ(Result(file, second), ERROR_IO_INCOMPLETE);
}

TEST_F(Reading, RefusesAReportThatTheDescriptorHasNoPlaceFor) {
    const auto device = Plug();
    EXPECT_THROW(device->SendInput({}), std::invalid_argument);
    EXPECT_THROW(device->SendInput(Bytes(6)), std::invalid_argument);
}

TEST_F(Reading, IsAbortedWhenTheHandleIsClosed) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& first = StartRead(file);
    Operation& second = StartRead(file);
    Close(file);
    EXPECT_TRUE(IsSignalled(first.event));
    EXPECT_EQ(Result(file, first), ERROR_OPERATION_ABORTED);
    EXPECT_EQ(Result(file, second), ERROR_OPERATION_ABORTED);
    EXPECT_EQ(device->PendingReads(), 0U);
}

TEST_F(Reading, LeavesOtherHandlesAloneWhenOneIsClosed) {
    const auto device = Plug();
    const HANDLE closed = Open(*device);
    const HANDLE kept = Open(*device);
    StartRead(closed);
    Operation& read = StartRead(kept);
    Close(closed);
    EXPECT_EQ(Result(kept, read), ERROR_IO_INCOMPLETE);
}

TEST_F(Reading, IsRefusedOnAnythingButAFile) {
    Operation& read = MakeOperation(Bytes(5));
    EXPECT_EQ(Read(read.event, read), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Read(nullptr, read), ERROR_INVALID_HANDLE);
    const auto device = Plug();
    read.overlapped.hEvent = reinterpret_cast<HANDLE>(std::uintptr_t{0x1234});
    EXPECT_EQ(Read(Open(*device), read), ERROR_INVALID_HANDLE);
}

}  // namespace
}  // namespace simulator_test
