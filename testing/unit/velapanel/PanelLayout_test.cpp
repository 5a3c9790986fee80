// Every part of the panel is whole and overlaps no other, whatever the window's size.
#include <gmock/gmock.h>

#include "tools/velapanel/Painter.h"

namespace velapanel {
namespace {

struct Size {
    int width;
    int height;
};
constexpr Size kSizes[] = {{kMinimumWidth, kMinimumHeight},
                           {800, 600},
                           {960, 720},
                           {1920, 1080},
                           {560, 1600},
                           {2560, 420}};

bool IsInside(const Box& inner, const Box& outer) {
    return inner.left >= outer.left && inner.top >= outer.top &&
           inner.Right() <= outer.Right() + 0.01F && inner.Bottom() <= outer.Bottom() + 0.01F;
}

bool Overlap(const Box& a, const Box& b) {
    return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

TEST(PanelLayout, CutsNothingOffAndPutsNothingOnTopOfAnother) {
    for (const Size& size : kSizes) {
        SCOPED_TRACE(testing::Message() << size.width << " by " << size.height);
        const PanelLayout layout = LayOut(size.width, size.height);
        const Box window{0, 0, static_cast<float>(size.width), static_cast<float>(size.height)};
        std::vector<Box> boxes(layout.buttons.begin(), layout.buttons.end());
        for (const Box& box : boxes) EXPECT_TRUE(IsInside(box, layout.surface));
        EXPECT_TRUE(IsInside(layout.haptic, layout.surface));
        boxes.insert(boxes.end(), layout.keys.begin(), layout.keys.end());
        boxes.push_back(layout.haptic);
        boxes.push_back(layout.reports);
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            EXPECT_TRUE(IsInside(boxes[i], window)) << i;
            for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(Overlap(boxes[i], boxes[j])) << i << j;
        }
        // The list has room for its heading and at least five reports.
        EXPECT_GE(layout.reports.height, 6 * 20 * layout.scale);
        for (const Action button : {Action::Camera, Action::ShareScreen}) {
            EXPECT_TRUE(IsInside(LampOf(layout, button), layout.BoxOf(button)));
        }
    }
}

TEST(PanelLayout, OfAWindowBelowTheSmallestIsTheSmallests) {
    EXPECT_EQ(LayOut(1, 1).reports.Bottom(),
              LayOut(kMinimumWidth, kMinimumHeight).reports.Bottom());
}

TEST(PanelLayout, FindsEachActionInItsBoxAndNoneBeside) {
    const PanelLayout layout = LayOut(960, 720);
    for (const ActionInfo& info : kActions) {
        const Box& box = layout.BoxOf(info.action);
        EXPECT_EQ(layout.ActionAt(box.left, box.top), info.action);
        EXPECT_EQ(layout.ActionAt(box.Right() - 1, box.Bottom() - 1), info.action);
        EXPECT_EQ(layout.ActionAt(box.left - 1, box.top), std::nullopt);
    }
    EXPECT_EQ(layout.ActionAt(layout.reports.left + 5, layout.reports.top + 5), std::nullopt);
}

}  // namespace
}  // namespace velapanel
