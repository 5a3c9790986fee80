// The picture shows the content of a light report.
#include <gmock/gmock.h>

#include "tools/velapanel/Breathing.h"
#include "tools/velapanel/Painter.h"

namespace velapanel {
namespace {

constexpr int kWidth = 960;
constexpr int kHeight = 720;

// The colours of the four lamps.
struct Lamps {
    std::array<Gdiplus::Color, kButtonCount> colours;

    Gdiplus::Color Of(Action button) const { return colours[static_cast<std::size_t>(button)]; }
    int Sum(Action button) const {
        const Gdiplus::Color colour = Of(button);
        return colour.GetR() + colour.GetG() + colour.GetB();
    }
};

Lamps Draw(const virtual_touchpad::Lights& lights, double breathSeconds = 0) {
    PanelState state;
    state.isPlugged = true;
    state.lights = lights;
    Canvas canvas(kWidth, kHeight);
    Paint(canvas, {state, breathSeconds, {}, {}});
    Lamps lamps;
    const PanelLayout layout = LayOut(kWidth, kHeight);
    for (std::size_t i = 0; i < kButtonCount; ++i) {
        const Box lamp = LampOf(layout, static_cast<Action>(i));
        lamps.colours[i] = canvas.At(static_cast<int>(lamp.left + lamp.width / 2),
                                     static_cast<int>(lamp.top + lamp.height / 2));
    }
    return lamps;
}

virtual_touchpad::Lights Lit(std::uint16_t usage, std::uint8_t brightness) {
    virtual_touchpad::Lights lights;
    lights.brightness[usage] = brightness;
    return lights;
}

struct Light {
    Action button;
    std::uint16_t usage;
};
constexpr Light kLights[] = {{Action::Camera, 0x20},     {Action::Camera, 0x21},
                             {Action::Microphone, 0x26}, {Action::Microphone, 0x27},
                             {Action::Chat, 0x24},       {Action::ShareScreen, 0x22}};

TEST(Picture, ShowsEachLightAtItsButtonAndNoOther) {
    const Lamps dark = Draw({});
    for (const Light& light : kLights) {
        const Lamps lit = Draw(Lit(light.usage, 255));
        for (const ActionInfo& info : kActions) {
            if (static_cast<std::size_t>(info.action) >= kButtonCount) break;
            if (info.action == light.button) {
                EXPECT_GT(lit.Sum(info.action), dark.Sum(info.action) + 100) << light.usage;
            } else {
                EXPECT_EQ(lit.Sum(info.action), dark.Sum(info.action)) << light.usage;
            }
        }
    }
}

// The lowest brightness differs clearly from dark, and a higher one is brighter.
TEST(Picture, DistinguishesBrightnesses) {
    for (const Light& light : kLights) {
        int before = Draw({}).Sum(light.button) + 20;
        for (const int brightness : {1, 3, 20, 80, 160, 255}) {
            const int now =
                Draw(Lit(light.usage, static_cast<std::uint8_t>(brightness))).Sum(light.button);
            EXPECT_GT(now, before) << light.usage << " at " << brightness;
            before = now;
        }
    }
}

TEST(Picture, DistinguishesOnFromOffByColour) {
    for (const auto& [button, on, off] :
         {std::tuple(Action::Camera, 0x20, 0x21), std::tuple(Action::Microphone, 0x26, 0x27)}) {
        const auto colour = [&, which = button](int usage) {
            return Draw(Lit(static_cast<std::uint16_t>(usage), 200)).Of(which);
        };
        EXPECT_GT(colour(on).GetG(), colour(on).GetR() + 50);
        EXPECT_GT(colour(off).GetR(), colour(off).GetG() + 50);
    }
}

TEST(Picture, ShowsABreathSwellAndFade) {
    virtual_touchpad::Lights lights = Lit(0x24, 255);
    const int steady = Draw(lights).Sum(Action::Chat);
    for (const int breathing : {8, 15}) {
        lights.breathing = static_cast<std::uint8_t>(breathing);
        const auto at = [&](double part) {
            return Draw(lights, part * kBreathSeconds).Sum(Action::Chat);
        };
        EXPECT_EQ(at(0), Draw({}).Sum(Action::Chat));
        EXPECT_GT(at(0.25), at(0.1));
        EXPECT_EQ(at(0.5), steady);
        EXPECT_LT(at(0.75), at(0.5));
    }
}

TEST(Picture, OfAnUnpluggedTouchpadIsVeiled) {
    PanelState state;
    Canvas gone(kWidth, kHeight);
    Paint(gone, {state, 0, {}, {}});
    state.isPlugged = true;
    Canvas there(kWidth, kHeight);
    Paint(there, {state, 0, {}, {}});
    EXPECT_NE(gone.Pixels(), there.Pixels());
}

TEST(Picture, ShowsTheFocusAndTheHapticLevel) {
    PanelState state;
    state.isPlugged = true;
    std::vector<std::vector<std::uint32_t>> pictures;
    const auto add = [&](const PanelView& view) {
        Canvas canvas(kMinimumWidth, kMinimumHeight);
        Paint(canvas, view);
        EXPECT_THAT(pictures, testing::Not(testing::Contains(canvas.Pixels())));
        pictures.push_back(canvas.Pixels());
    };
    add({state, 0, {}, {}});
    for (const ActionInfo& info : kActions) add({state, 0, info.action, {}});
    add({state, 0, {}, L"it did not work"});
    for (const unsigned level : {0U, 50U, 100U}) {
        state.hapticLevel = level;
        add({state, 0, {}, {}});
    }
    state.reports.push_back({"input", "01 02 00", "camera"});
    add({state, 0, {}, {}});
}

}  // namespace
}  // namespace velapanel
