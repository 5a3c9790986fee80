#include "testing/unit/simulator/SimulatorTest.h"

namespace simulator_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Writing : public SimulatorTest {
 protected:
    Operation& Report() { return MakeOperation({2, 1, 2, 3, 0, 0}); }
};

TEST_F(Writing, AnswersPendingAndCompletesRightAway) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& write = Report();
    EXPECT_EQ(Write(file, write), ERROR_IO_PENDING);
    EXPECT_TRUE(IsSignalled(write.event));
    DWORD transferred = 0;
    EXPECT_EQ(Result(file, write, &transferred), ERROR_SUCCESS);
    EXPECT_EQ(transferred, 6U);
    EXPECT_THAT(device->Outputs(), ElementsAre(Bytes{2, 1, 2, 3, 0, 0}));
}

TEST_F(Writing, SucceedsWithinTheCallWhenTheDeviceIsThatFast) {
    const auto device = Plug();
    device->SetWriteBehaviour(WriteBehaviour::Immediate);
    Operation& write = Report();
    DWORD transferred = 0;
    EXPECT_TRUE(WriteFile(Open(*device), write.bytes.data(), 6, &transferred, &write.overlapped));
    EXPECT_EQ(transferred, 6U);
    EXPECT_TRUE(IsSignalled(write.event));
    EXPECT_TRUE(device->WaitForOutputs(1));
}

struct Refusal {
    const char* name;
    Bytes report;
    DWORD error;
};

class RefusedOutputReports : public SimulatorTest, public testing::WithParamInterface<Refusal> {};

TEST_P(RefusedOutputReports, NeverReachTheDevice) {
    const auto device = Plug();
    Operation& write = MakeOperation(GetParam().report);
    EXPECT_EQ(Write(Open(*device), write), GetParam().error);
    EXPECT_FALSE(IsSignalled(write.event));
    EXPECT_THAT(device->Outputs(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RefusedOutputReports,
    testing::Values(Refusal{"Empty", {}, ERROR_INVALID_USER_BUFFER},
                    Refusal{"ShorterThanItsReport", {3, 0, 0, 0, 0}, ERROR_INVALID_PARAMETER},
                    Refusal{"UnknownId", {9, 0, 0, 0, 0, 0}, ERROR_INVALID_PARAMETER},
                    Refusal{"InputId", {1, 0, 0, 0, 0, 0}, ERROR_INVALID_PARAMETER},
                    Refusal{"NoId", {0, 0, 0, 0, 0, 0}, ERROR_INVALID_PARAMETER}),
    [](const testing::TestParamInfo<Refusal>& row) { return row.param.name; });

TEST_F(Writing, AcceptsTheLengthOfItsOwnReportAndMoreThanTheLongest) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    EXPECT_EQ(Write(file, MakeOperation({2, 1, 2, 3})), ERROR_IO_PENDING);
    EXPECT_EQ(Write(file, MakeOperation({2, 1, 2, 3, 0, 0, 7, 7})), ERROR_IO_PENDING);
    EXPECT_THAT(device->Outputs(), ElementsAre(Bytes{2, 1, 2, 3}, Bytes{2, 1, 2, 3, 0, 0}));
}

TEST_F(Writing, LeavesByteZeroBehindWhereThereAreNoIds) {
    const auto device = Plug(DescriptorWithoutIds());
    const HANDLE file = Open(*device);
    EXPECT_EQ(Write(file, MakeOperation({0, 7, 8, 9})), ERROR_IO_PENDING);
    EXPECT_EQ(Write(file, MakeOperation({1, 7, 8, 9})), ERROR_INVALID_PARAMETER);
    EXPECT_THAT(device->Outputs(), ElementsAre(Bytes{7, 8, 9}));
}

TEST_F(Writing, IsHeldUntilTheTestEndsIt) {
    const auto device = Plug();
    device->SetWriteBehaviour(WriteBehaviour::Hold);
    const HANDLE file = Open(*device);
    Operation& write = Report();
    EXPECT_EQ(Write(file, write), ERROR_IO_PENDING);
    EXPECT_TRUE(device->WaitForHeldWrites());
    EXPECT_EQ(Result(file, write), ERROR_IO_INCOMPLETE);
    EXPECT_THAT(device->Outputs(), IsEmpty());

    device->CompleteHeldWrites();
    EXPECT_EQ(Result(file, write), ERROR_SUCCESS);
    EXPECT_EQ(device->HeldWrites(), 0U);
    EXPECT_THAT(device->Outputs(), ElementsAre(Bytes{2, 1, 2, 3, 0, 0}));
}

TEST_F(Writing, CompletesLateIntoAKeptRecordWhoseEventIsClosed) {
    const auto device = Plug();
    device->SetWriteBehaviour(WriteBehaviour::Hold);
    const HANDLE file = Open(*device);
    Operation& write = Report();
    EXPECT_EQ(Write(file, write), ERROR_IO_PENDING);
    EXPECT_EQ(WaitForSingleObject(write.event, 1), WAIT_TIMEOUT);
    EXPECT_TRUE(CloseHandle(write.event));

    device->CompleteHeldWrites();
    EXPECT_TRUE(HasOverlappedIoCompleted(&write.overlapped));
    EXPECT_EQ(write.overlapped.InternalHigh, 6U);
}

TEST_F(Writing, SignalsTheEventOfAnOperationThatWasGivenUp) {
    const auto device = Plug();
    device->SetWriteBehaviour(WriteBehaviour::Hold);
    const HANDLE file = Open(*device);
    Operation& given = Report();
    EXPECT_EQ(Write(file, given), ERROR_IO_PENDING);

    // The next write with the same event resets it, and is not the one that ends.
    OVERLAPPED next{};
    next.hEvent = given.event;
    EXPECT_FALSE(WriteFile(file, given.bytes.data(), 6, nullptr, &next));
    EXPECT_FALSE(IsSignalled(given.event));
    device->CompleteHeldWrites();
    EXPECT_TRUE(IsSignalled(given.event));
    EXPECT_TRUE(HasOverlappedIoCompleted(&given.overlapped));
    EXPECT_TRUE(HasOverlappedIoCompleted(&next));
}

TEST_F(Writing, FailsLateWithTheErrorOfTheTest) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    device->FailNextWriteLate(ERROR_GEN_FAILURE);
    Operation& failed = Report();
    EXPECT_EQ(Write(file, failed), ERROR_IO_PENDING);
    EXPECT_TRUE(IsSignalled(failed.event));
    EXPECT_EQ(Result(file, failed), ERROR_GEN_FAILURE);
    EXPECT_THAT(device->Outputs(), IsEmpty());

    Operation& next = Report();
    EXPECT_EQ(Write(file, next), ERROR_IO_PENDING);
    EXPECT_EQ(Result(file, next), ERROR_SUCCESS);
}

TEST_F(Writing, HeldFailsWithTheErrorOfTheTest) {
    const auto device = Plug();
    device->SetWriteBehaviour(WriteBehaviour::Hold);
    const HANDLE file = Open(*device);
    Operation& write = Report();
    Write(file, write);
    device->CompleteHeldWrites(ERROR_SEM_TIMEOUT);
    EXPECT_EQ(Result(file, write), ERROR_SEM_TIMEOUT);
    EXPECT_THAT(device->Outputs(), IsEmpty());
}

TEST_F(Writing, HeldIsAbortedWhenItsHandleIsClosed) {
    const auto device = Plug();
    device->SetWriteBehaviour(WriteBehaviour::Hold);
    const HANDLE closed = Open(*device);
    const HANDLE kept = Open(*device);
    Operation& aborted = Report();
    Operation& held = Report();
    Write(closed, aborted);
    Write(kept, held);
    Close(closed);
    EXPECT_EQ(Result(closed, aborted), ERROR_OPERATION_ABORTED);
    EXPECT_TRUE(IsSignalled(aborted.event));
    EXPECT_EQ(Result(kept, held), ERROR_IO_INCOMPLETE);
    EXPECT_EQ(device->HeldWrites(), 1U);
}

TEST_F(Writing, ForgetsOutputsOnRequest) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Write(file, Report());
    device->ForgetOutputs();
    EXPECT_THAT(device->Outputs(), IsEmpty());
    Write(file, Report());
    EXPECT_TRUE(device->WaitForOutputs(1));
}

}  // namespace
}  // namespace simulator_test
