// The light report's bytes for every state of the buttons.
#include <array>
#include <tuple>

#include "testing/kit/native/CompositionTest.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

struct Flags {
    bool enabled;
    bool visible;
    bool lightOn;
};

// One shown button's part of a report in which nothing else is lit.
struct ButtonRow {
    std::uint32_t id;
    Bytes lightOff;
    Bytes lightOn;
};

const ButtonRow kButtons[] = {
    {vela::BUTTON_ID_CAMERA, LightReport("camera off 3; camera active"),
     LightReport("camera on 3; camera active")},
    {vela::BUTTON_ID_AUDIO, LightReport("microphone off 3; microphone active"),
     LightReport("microphone on 3; microphone active")},
    {vela::BUTTON_ID_CHAT, LightReport("chat 3; chat active"), LightReport("chat 3; chat active")},
    {vela::BUTTON_ID_SHARE_SCREEN, LightReport("share screen 3; share screen active"),
     LightReport("share screen 3; share screen active")},
};

const Bytes& ReportOf(const ButtonRow& button, const Flags& flags) {
    static const Bytes blank = BlankReport();
    if (!flags.enabled || !flags.visible) return blank;
    return flags.lightOn ? button.lightOn : button.lightOff;
}

void PrintTo(const ButtonRow& button, std::ostream* stream) { *stream << "button " << button.id; }

// Buttons share only the byte of the active bits.
Bytes ReportOf(const std::array<Flags, 4>& flags) {
    Bytes report = BlankReport();
    for (const ButtonRow& button : kButtons) {
        const Bytes& part = ReportOf(button, flags[button.id]);
        for (std::size_t i = 0; i < report.size(); ++i) {
            report[i] = static_cast<std::uint8_t>(report[i] | part[i]);
        }
    }
    return report;
}

class LedReportTest : public CompositionTest {
 protected:
    void SetFlags(std::uint32_t button, const Flags& flags) {
        session_.EnableButton(button, flags.enabled);
        session_.SetButtonVisible(button, flags.visible);
        session_.SetButtonLight(button, flags.lightOn);
    }
};

// --- one button ----------------------------------------------------------------------------------

class SingleButton : public LedReportTest,
                     public testing::WithParamInterface<std::tuple<ButtonRow, bool, bool, bool>> {
 protected:
    const ButtonRow& Button() const { return std::get<0>(GetParam()); }
    Flags ItsFlags() const {
        return {std::get<1>(GetParam()), std::get<2>(GetParam()), std::get<3>(GetParam())};
    }
};

TEST_P(SingleButton, LightsAsItsFlagsSay) {
    OpenActive();
    SetFlags(Button().id, ItsFlags());
    EXPECT_EQ(Compose(), ReportOf(Button(), ItsFlags()));
    EXPECT_THAT(ComposeLog(), IsEmpty());
}

TEST_P(SingleButton, LeavesNothingOfAnEarlierReport) {
    OpenAndLight();
    HideAllButtons();
    SetFlags(Button().id, ItsFlags());
    EXPECT_EQ(Compose(), ReportOf(Button(), ItsFlags()));
}

INSTANTIATE_TEST_SUITE_P(States, SingleButton,
                         testing::Combine(testing::ValuesIn(kButtons), testing::Bool(),
                                          testing::Bool(), testing::Bool()));

// --- all buttons ---------------------------------------------------------------------------------

class ActiveState : public LedReportTest, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(ActiveState, LightsEveryCombinationOfFlags) {
    OpenActive();
    session_.Activate(GetParam());
    WrittenReports(session_, *device_);
    machine_.RecordCalls(false);
    constexpr unsigned kFlagCount = 4 * 3;
    std::array<Flags, 4> flags{};
    Bytes last = BlankReport();
    // One flag changes from each combination to the next.
    for (unsigned step = 1; step < 1U << kFlagCount; ++step) {
        unsigned changed = 0;
        while ((step >> changed & 1U) == 0) ++changed;
        const std::uint32_t button = changed / 3;
        bool Flags::*const flag = std::array<bool Flags::*, 3>{&Flags::enabled, &Flags::visible,
                                                               &Flags::lightOn}[changed % 3];
        flags[button].*flag = !(flags[button].*flag);
        switch (changed % 3) {
            case 0:
                session_.EnableButton(button, flags[button].enabled);
                break;
            case 1:
                session_.SetButtonVisible(button, flags[button].visible);
                break;
            default:
                session_.SetButtonLight(button, flags[button].lightOn);
        }
        const Bytes expected = ReportOf(flags);
        const auto written = WrittenReports(session_, *device_);
        if (expected == last) {
            ASSERT_THAT(written, IsEmpty()) << "step " << step;
        } else {
            ASSERT_THAT(written, ElementsAre(expected)) << "step " << step;
        }
        last = expected;
    }
}

INSTANTIATE_TEST_SUITE_P(Values, ActiveState, testing::Values(0U, 1U));

class Brightness : public LedReportTest, public testing::WithParamInterface<std::uint8_t> {};

TEST_P(Brightness, IsTheValueOfEveryLitLight) {
    const std::uint8_t level = GetParam();
    OpenAndLight();
    session_.SetBrightness(level);
    EXPECT_EQ(Compose(), AllLitAt(level));
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    session_.SetButtonLight(vela::BUTTON_ID_AUDIO, true);
    EXPECT_EQ(Compose(),
              LightReport("camera on, microphone on, chat, share screen; all active", level));
    EXPECT_THAT(ComposeLog(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Levels, Brightness, testing::Values(0, 1, 3, 127, 128, 255));

TEST_F(LedReportTest, AHiddenButtonIsDarkAtAnyBrightness) {
    OpenAndLight();
    session_.SetBrightness(255);
    session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, false);
    session_.EnableButton(vela::BUTTON_ID_SHARE_SCREEN, false);
    EXPECT_EQ(Compose(), LightReport("microphone off 255, chat 255; microphone, chat active"));
}

TEST_F(LedReportTest, UnknownButtonsAreInNoReport) {
    OpenActive();
    for (const std::uint32_t button : {4U, 9U, 0x100U, 0xFFFFFFFFU}) {
        SetFlags(button, {true, true, true});
        EXPECT_EQ(Compose(), BlankReport());
    }
}

// --- blank reports -------------------------------------------------------------------------------

struct BlankCase {
    bool featureEnabled;
    std::uint32_t activation;
};

void PrintTo(const BlankCase& blank, std::ostream* stream) {
    *stream << (blank.featureEnabled ? "enabled" : "disabled") << " in " << blank.activation;
}

class BlankState : public LedReportTest, public testing::WithParamInterface<BlankCase> {};

TEST_P(BlankState, DarkensEverything) {
    OpenAndLight();
    session_.EnableButtonBreathing(vela::BUTTON_ID_CHAT, true);
    session_.Activate(GetParam().activation);
    session_.Enable(GetParam().featureEnabled);
    session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
    for (std::uint32_t button = 0; button < 4; ++button) SetFlags(button, {true, true, true});
    EXPECT_EQ(Compose(), BlankReport());
    EXPECT_THAT(ComposeLog(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(States, BlankState,
                         testing::Values(BlankCase{false, 0}, BlankCase{false, 1},
                                         BlankCase{false, 4}, BlankCase{true, 2},
                                         BlankCase{true, 3}, BlankCase{true, 4}, BlankCase{true, 5},
                                         BlankCase{true, 6}, BlankCase{true, 0x100},
                                         BlankCase{true, 0xFFFFFFFF}));

}  // namespace
