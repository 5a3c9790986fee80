#include "testing/unit/simulator/SimulatorTest.h"

#include <cstdlib>
#include <ctime>
#include <stdexcept>

namespace simulator_test {
namespace {

class PlatformClock : public SimulatorTest {};

TEST_F(PlatformClock, StandsWhereTheTestStoppedIt) {
    // The machine's own time zone must not matter.
    ASSERT_EQ(setenv("TZ", "VELA-5:45", 1), 0);
    machine_.StopClockAt("2024-02-29 23:59:58");
    __time64_t stored = 0;
    const __time64_t now = _time64(&stored);
    EXPECT_EQ(now, stored);
    std::tm local{};
    EXPECT_EQ(_localtime64_s(&local, &now), 0);
    char text[32] = {};
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    EXPECT_STREQ(text, "2024-02-29 23:59:58");
    unsetenv("TZ");
}

TEST_F(PlatformClock, IsTheRealOneOtherwise) {
    // An unusual time zone, in which local time and universal time always differ.
    ASSERT_EQ(setenv("TZ", "VELA-5:45", 1), 0);
    machine_.StopClockAt("1970-01-02 00:00:00");
    machine_.Reset();
    const __time64_t now = _time64(nullptr);
    EXPECT_LE(std::time(nullptr) - now, 2);
    std::tm local{};
    EXPECT_EQ(_localtime64_s(&local, &now), 0);
    EXPECT_EQ(std::mktime(&local), now);
    EXPECT_EQ(timegm(&local), now + (5 * 60 + 45) * 60);
    unsetenv("TZ");
    tzset();
}

TEST_F(PlatformClock, StopsAtNoTextThatIsNoTime) {
    EXPECT_THROW(machine_.StopClockAt("this evening"), std::invalid_argument);
}

TEST_F(PlatformClock, RefusesTimesBeforeItsEpochAndMissingOnes) {
    std::tm local{};
    const __time64_t before = -1;
    EXPECT_NE(_localtime64_s(&local, &before), 0);
    EXPECT_NE(_localtime64_s(&local, nullptr), 0);
    EXPECT_NE(_localtime64_s(nullptr, &before), 0);
}

}  // namespace
}  // namespace simulator_test
