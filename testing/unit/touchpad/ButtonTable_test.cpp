// The table of buttons and its saved copy, without a session.
#include "touchpad/ButtonTable.h"

#include <gtest/gtest.h>

namespace {

using vela::ButtonState;
using vela::ButtonTable;

constexpr std::uint32_t kChat = vela::BUTTON_ID_CHAT;
constexpr std::uint32_t kUnknown = 77;

TEST(ButtonTableTest, HasDefaultEntriesForEveryId) {
    ButtonTable buttons;
    for (const std::uint32_t id : {0U, 1U, 2U, 3U, kUnknown}) {
        const ButtonState button = buttons.Copy(id);
        EXPECT_FALSE(button.present || button.enabled || button.breathingEnabled);
        EXPECT_FALSE(button.lightOn || button.visible);
        EXPECT_EQ(button.breathingState, 2U);
        EXPECT_EQ(button.breathingLevel, 8U);
    }
}

TEST(ButtonTableTest, SetsOneFlagOfOneButton) {
    ButtonTable buttons;
    buttons.SetFlag(1, &ButtonState::visible, true);
    EXPECT_TRUE(buttons.Copy(1).visible);
    EXPECT_FALSE(buttons.Copy(1).enabled);
    EXPECT_FALSE(buttons.Copy(0).visible);
    buttons.SetFlag(kUnknown, &ButtonState::lightOn, true);
    EXPECT_TRUE(buttons.Copy(kUnknown).lightOn);
}

TEST(ButtonTableTest, SeedingForgetsWhatWasSetOfTheMeetingButtonsOnly) {
    ButtonTable buttons;
    buttons.SetFlag(0, &ButtonState::enabled, true);
    buttons.SetFlag(kUnknown, &ButtonState::enabled, true);
    buttons.Seed(true);
    for (const std::uint32_t id : {0U, 1U, 2U, 3U}) {
        EXPECT_TRUE(buttons.Copy(id).present);
        EXPECT_FALSE(buttons.Copy(id).enabled);
    }
    EXPECT_FALSE(buttons.Copy(kUnknown).present);
    EXPECT_TRUE(buttons.Copy(kUnknown).enabled);
    buttons.Clear();
    EXPECT_FALSE(buttons.Copy(0).present);
    EXPECT_FALSE(buttons.Copy(kUnknown).enabled);
}

TEST(ButtonTableTest, BreathingIsRequestedStartedAndStopped) {
    ButtonTable buttons;
    buttons.StartChatBreathing();
    EXPECT_EQ(buttons.Copy(kChat).breathingState, 2U);
    buttons.SetBreathing(kChat, true);
    EXPECT_EQ(buttons.Copy(kChat).breathingState, 0U);
    EXPECT_EQ(buttons.Copy(kChat).breathingLevel, 8U);
    buttons.StartChatBreathing();
    EXPECT_EQ(buttons.Copy(kChat).breathingState, 1U);
    buttons.SetBreathing(kChat, false);
    EXPECT_EQ(buttons.Copy(kChat).breathingState, 2U);
    EXPECT_EQ(buttons.Copy(kChat).breathingLevel, 0U);
}

TEST(ButtonTableTest, RestoresWhatWasSaved) {
    ButtonTable buttons;
    buttons.SetFlag(3, &ButtonState::visible, true);
    buttons.SetFlag(3, &ButtonState::enabled, true);
    buttons.Save();
    buttons.HideAll();
    EXPECT_FALSE(buttons.Copy(3).visible);
    EXPECT_TRUE(buttons.Copy(3).enabled);
    buttons.Restore();
    EXPECT_TRUE(buttons.Copy(3).visible);
}

TEST(ButtonTableTest, ShowsCompositionsTheButtonsAsTheyAre) {
    ButtonTable buttons;
    const ButtonTable::MeetingButtons& meeting = buttons.Meeting();
    buttons.SetFlag(2, &ButtonState::lightOn, true);
    EXPECT_TRUE(meeting[2].lightOn);
}

TEST(ButtonTableTest, KeepsTheFirstUnknownIdApartFromTheMeetingButtons) {
    ButtonTable buttons;
    buttons.Save();
    buttons.SetFlag(vela::kMeetingButtonCount, &ButtonState::enabled, true);
    buttons.Restore();
    EXPECT_TRUE(buttons.Copy(vela::kMeetingButtonCount).enabled);
    for (const std::uint32_t id : {0U, 1U, 2U, 3U}) EXPECT_FALSE(buttons.Copy(id).enabled);
}

}  // namespace
