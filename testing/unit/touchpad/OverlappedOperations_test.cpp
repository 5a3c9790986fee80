// Operations live until the kernel has finished with them.
#include "touchpad/OverlappedOperations.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using vela::OverlappedOperation;
using vela::OverlappedOperations;

// The status in a record while the kernel works on it.
constexpr ULONG_PTR kPending = 0x103;

TEST(OverlappedOperationTest, IsOursUntilIssued) {
    OverlappedOperation operation({1, 2});
    operation.Prepare(nullptr);
    EXPECT_FALSE(operation.IsWithKernel());
}

// Some systems mark the record before they accept the operation.
TEST(OverlappedOperationTest, IsOursUntilIssuedThoughItsRecordSaysPending) {
    OverlappedOperation operation({1, 2});
    operation.overlapped.Internal = kPending;
    EXPECT_FALSE(operation.IsWithKernel());
    operation.Issued(true);
    operation.Prepare(nullptr);
    operation.overlapped.Internal = kPending;
    EXPECT_FALSE(operation.IsWithKernel());
}

TEST(OverlappedOperationTest, IsWithTheKernelWhilePending) {
    OverlappedOperation operation({1, 2});
    operation.Prepare(nullptr);
    operation.overlapped.Internal = kPending;
    operation.Issued(true);
    EXPECT_TRUE(operation.IsWithKernel());
    operation.overlapped.Internal = 0;
    EXPECT_FALSE(operation.IsWithKernel());
}

TEST(OverlappedOperationTest, ThatFailedAtOnceIsOursThoughItsRecordSaysPending) {
    OverlappedOperation operation({1, 2});
    operation.Prepare(nullptr);
    operation.overlapped.Internal = kPending;
    operation.Issued(false);
    EXPECT_FALSE(operation.IsWithKernel());
}

TEST(OverlappedOperationTest, PrepareForgetsTheLastIssue) {
    OverlappedOperation operation({1, 2});
    operation.overlapped.Internal = kPending;
    operation.Issued(true);
    operation.Prepare(&operation);
    EXPECT_FALSE(operation.IsWithKernel());
    EXPECT_EQ(operation.overlapped.Internal, 0U);
    EXPECT_EQ(operation.overlapped.hEvent, &operation);
}

TEST(OverlappedOperationsTest, KeepAnOperationThatItsOwnerGaveUp) {
    OverlappedOperations operations;
    OverlappedOperation* kept = nullptr;
    {
        const auto operation = operations.Make({1, 2});
        operation->overlapped.Internal = kPending;
        operation->Issued(true);
        kept = operation.get();
    }
    operations.FreeEnded();
    // The kernel ends the operation late and writes its record and bytes, which must still exist.
    kept->bytes[0] = 9;
    EXPECT_EQ(kept->overlapped.Internal, kPending);
    kept->overlapped.Internal = 0;
    operations.FreeEnded();
}

TEST(OverlappedOperationsTest, LeaveToTheKernelWhatItStillHoldsAtTheirEnd) {
    std::unique_ptr<OverlappedOperation> left;
    {
        OverlappedOperations operations;
        const auto operation = operations.Make({1, 2});
        operation->overlapped.Internal = kPending;
        operation->Issued(true);
        left.reset(operation.get());
    }
    left->bytes[0] = 9;
    EXPECT_EQ(left->overlapped.Internal, kPending);
}

}  // namespace
