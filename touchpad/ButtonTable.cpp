#include "touchpad/ButtonTable.h"

#include "platform/Lock.h"

namespace vela {

ButtonState& ButtonTable::At(std::uint32_t id) {
    if (id < kMeetingButtonCount) return meeting_[id];
    return others_[id];
}

ButtonState ButtonTable::Copy(std::uint32_t id) {
    const Lock lock(mutex_);
    return At(id);
}

void ButtonTable::SetFlag(std::uint32_t id, Relaxed<bool> ButtonState::*flag, bool value) {
    const Lock lock(mutex_);
    At(id).*flag = value;
}

void ButtonTable::SetBreathing(std::uint32_t id, bool on) {
    const Lock lock(mutex_);
    ButtonState& button = At(id);
    button.breathingState = on ? kBreathingRequested : kBreathingStopped;
    button.breathingLevel = on ? 8 : 0;
}

void ButtonTable::StartChatBreathing() {
    const Lock lock(mutex_);
    ButtonState& chat = At(BUTTON_ID_CHAT);
    if (chat.breathingState == kBreathingRequested) chat.breathingState = kBreathingRunning;
}

void ButtonTable::Seed(bool present) {
    const Lock lock(mutex_);
    for (const std::uint32_t id : kSeededButtonIds) {
        ButtonState& button = At(id);
        button = ButtonState{};
        button.present = present;
    }
}

void ButtonTable::HideAll() {
    const Lock lock(mutex_);
    for (const std::uint32_t id : kSeededButtonIds) At(id).visible = false;
}

void ButtonTable::Clear() {
    const Lock lock(mutex_);
    meeting_.fill(ButtonState{});
    others_.clear();
}

void ButtonTable::Restore() {
    const Lock lock(mutex_);
    meeting_ = saved_;
}

}  // namespace vela
