#include "include/VelaAgent.h"
#include "testing/unit/haptic/HapticTest.h"

namespace kit {
namespace {

using testing::IsEmpty;

// Each test has a process of its own, as the exports use the process's one session.
class HapticExportsTest : public HapticTest {
 protected:
    ~HapticExportsTest() override { UnInitHapticTP(); }
};

TEST_F(HapticExportsTest, PresenceIsQueriedWithoutOpening) {
    EXPECT_EQ(IsHapticTPPresent(), 0);
    Plug();
    EXPECT_EQ(IsHapticTPPresent(), 1);
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
}

TEST_F(HapticExportsTest, ATouchpadWithoutIntensityIsPresentButCannotBeOpened) {
    HapticLayout layout;
    layout.hasIntensity = false;
    Plug(layout);
    // Discovery accepts it because of its other values on the haptics page.
    EXPECT_EQ(IsHapticTPPresent(), 1);
    EXPECT_EQ(InitHapticTP(), 0);
}

TEST_F(HapticExportsTest, OpenSetGetClose) {
    Plug();
    EXPECT_EQ(InitHapticTP(), 1);
    EXPECT_EQ(InitHapticTP(), 1);
    EXPECT_EQ(GetHapticTPIntensityLevel(), 42U);
    EXPECT_EQ(SetHapticTPIntensityLevel(60), 1);
    EXPECT_EQ(GetHapticTPIntensityLevel(), 60U);
    EXPECT_EQ(UnInitHapticTP(), 1);
    EXPECT_EQ(UnInitHapticTP(), 0);
}

TEST_F(HapticExportsTest, WithoutADeviceEveryCallFails) {
    EXPECT_EQ(InitHapticTP(), 0);
    EXPECT_EQ(GetHapticTPIntensityLevel(), 0U);
    EXPECT_EQ(SetHapticTPIntensityLevel(60), 0);
    EXPECT_EQ(UnInitHapticTP(), 0);
}

TEST_F(HapticExportsTest, ASharingViolationReturnsZero) {
    Plug();
    machine_.FailNext("CreateFileW", Fault::Error(32), 1);  // the scan's open succeeds
    EXPECT_EQ(InitHapticTP(), 0);
}

TEST_F(HapticExportsTest, LeavesTheTouchpadSessionAlone) {
    Plug();
    EXPECT_EQ(InitHapticTP(), 1);
    EXPECT_EQ(UnInit(), 0);
    EXPECT_EQ(GetHapticTPIntensityLevel(), 42U);
}

}  // namespace
}  // namespace kit
