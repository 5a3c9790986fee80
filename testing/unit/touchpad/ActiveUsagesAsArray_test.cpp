// Touchpads whose active usages are an array: each slot names one shown button.
#include "testing/kit/native/CompositionTest.h"

namespace {

using namespace kit;
using testing::IsEmpty;

struct ArrayCase {
    std::vector<std::uint32_t> shown;
    Bytes slots;  // after the light values
};

void PrintTo(const ArrayCase& array, std::ostream* stream) {
    *stream << testing::PrintToString(array.shown);
}

class ActiveUsagesAsArray : public CompositionTest, public testing::WithParamInterface<ArrayCase> {
 protected:
    static TouchpadLayout Layout() {
        TouchpadLayout layout;
        layout.activeUsagesAsArray = true;
        return layout;
    }
};

TEST_P(ActiveUsagesAsArray, FillTheSlotsInTheOrderOfTheReport) {
    OpenActive(Layout());
    for (const std::uint32_t button : GetParam().shown) {
        session_.EnableButton(button, true);
        session_.SetButtonVisible(button, true);
    }
    const Bytes report = Compose();
    ASSERT_EQ(report.size(), virtual_touchpad::kOutputReportLength);
    EXPECT_EQ(Bytes(report.begin() + virtual_touchpad::kActiveBitsOffset, report.end()),
              GetParam().slots);
    // Unsetting a usage that was not set is no failure.
    EXPECT_THAT(ComposeLog(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Shown, ActiveUsagesAsArray,
    testing::Values(ArrayCase{{}, {0, 0, 0, 0, 0}}, ArrayCase{{0}, {1, 0, 0, 0, 0}},
                    ArrayCase{{1}, {4, 0, 0, 0, 0}}, ArrayCase{{2}, {3, 0, 0, 0, 0}},
                    ArrayCase{{3}, {2, 0, 0, 0, 0}}, ArrayCase{{3, 1}, {4, 2, 0, 0, 0}},
                    ArrayCase{{2, 0}, {1, 3, 0, 0, 0}}, ArrayCase{{3, 2, 1, 0}, {1, 4, 3, 2, 0}}));

TEST_F(ActiveUsagesAsArray, AreAllFreeInABlankReport) {
    OpenAndLight(Layout());
    session_.Enable(false);
    EXPECT_EQ(Compose(), BlankReport());
    EXPECT_THAT(ComposeLog(), IsEmpty());
}

}  // namespace
