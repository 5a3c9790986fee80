// The memory of operations is freed once the kernel is done with them.
#include <gtest/gtest.h>
#include <malloc.h>

#include <cstddef>
#include <optional>
#include <vector>

#include "touchpad/OverlappedOperations.h"
#include "touchpad/TouchpadDevice.h"

namespace {

using vela::OverlappedOperation;
using vela::OverlappedOperations;

// The status in a record while the kernel works on it.
constexpr ULONG_PTR kPending = 0x103;

// The C library maps blocks of this size one by one, and counts them.
constexpr std::size_t kLargeReport = 1 << 20;

class OperationMemoryTest : public testing::Test {
 protected:
    // A fixed limit, which the C library would otherwise raise at the first free.
    OperationMemoryTest() { mallopt(M_MMAP_THRESHOLD, kLargeReport / 2); }

    // Has its owner give up an operation that is with the kernel.
    static OverlappedOperation& GiveUp(OverlappedOperations& operations) {
        const auto operation = operations.Make(std::vector<BYTE>(kLargeReport));
        operation->overlapped.Internal = kPending;
        operation->Issued(true);
        return *operation;
    }
    static void End(OverlappedOperation& operation) { operation.overlapped.Internal = 0; }

    // Sanitizers have an allocator of their own, for which this stays 0.
    static std::size_t LargeBlocks() { return mallinfo2().hblks; }
};

TEST_F(OperationMemoryTest, IsFreedWithAnOperationThatTheKernelIsDoneWith) {
    OverlappedOperations operations;
    { const auto operation = operations.Make(std::vector<BYTE>(kLargeReport)); }
    EXPECT_EQ(LargeBlocks(), 0U);
}

TEST_F(OperationMemoryTest, OfAGivenUpOperationIsFreedOnceItHasEnded) {
    OverlappedOperations operations;
    OverlappedOperation& ended = GiveUp(operations);
    OverlappedOperation& pending = GiveUp(operations);
    End(ended);
    operations.FreeEnded();
    EXPECT_LE(LargeBlocks(), 1U);
    End(pending);
}

TEST_F(OperationMemoryTest, OfAGivenUpOperationIsFreedWithTheNextThatIsGivenBack) {
    OverlappedOperations operations;
    End(GiveUp(operations));
    { const auto next = operations.Make({1, 2}); }
    EXPECT_EQ(LargeBlocks(), 0U);
}

TEST_F(OperationMemoryTest, OfAGivenUpOperationIsFreedAtTheEndOfAll) {
    std::optional<OverlappedOperations> operations(std::in_place);
    End(GiveUp(*operations));
    operations.reset();
    EXPECT_EQ(LargeBlocks(), 0U);
}

TEST_F(OperationMemoryTest, OfAGivenUpOperationIsFreedWhenTheTouchpadIsClosed) {
    vela::TouchpadDevice touchpad;
    End(GiveUp(touchpad.Operations()));
    touchpad.Close();
    EXPECT_EQ(LargeBlocks(), 0U);
}

}  // namespace
