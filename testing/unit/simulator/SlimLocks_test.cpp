// The part of the slim locks that is simulated.
#include "testing/unit/simulator/SimulatorTest.h"

namespace simulator_test {
namespace {

class SlimLocks : public SimulatorTest {};

TEST_F(SlimLocks, AreNeitherRecordedNorFailed) {
    machine_.SetFaultPolicy([](const simulator::Call&) { return Fault::Error(5); });
    SRWLOCK lock = SRWLOCK_INIT;
    CONDITION_VARIABLE condition = CONDITION_VARIABLE_INIT;
    AcquireSRWLockExclusive(&lock);
    WakeAllConditionVariable(&condition);
    ReleaseSRWLockExclusive(&lock);
    machine_.SetFaultPolicy(nullptr);
    EXPECT_TRUE(machine_.Calls().empty());
}

TEST_F(SlimLocks, WaitWithoutLimitAndExclusivelyOnly) {
    SRWLOCK lock = SRWLOCK_INIT;
    CONDITION_VARIABLE condition = CONDITION_VARIABLE_INIT;
    AcquireSRWLockExclusive(&lock);
    EXPECT_FALSE(SleepConditionVariableSRW(&condition, &lock, 10, 0));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(SleepConditionVariableSRW(&condition, &lock, INFINITE, 1));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    ReleaseSRWLockExclusive(&lock);
}

}  // namespace
}  // namespace simulator_test
