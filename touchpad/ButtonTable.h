// The session's table of buttons, by id, and the copy of it that a suspended session keeps.
#pragma once

#include <array>
#include <cstdint>
#include <unordered_map>

#include "platform/Mutex.h"
#include "touchpad/ButtonState.h"

namespace vela {

// Any thread may call any operation. Looking an id up that is not in the table inserts a default
// entry; that of an id which no meeting button has never reaches a report.
class ButtonTable {
 public:
    using MeetingButtons = std::array<ButtonState, kMeetingButtonCount>;

    ButtonTable() = default;
    ButtonTable(const ButtonTable&) = delete;
    ButtonTable& operator=(const ButtonTable&) = delete;

    ButtonState Copy(std::uint32_t id);
    void SetFlag(std::uint32_t id, Relaxed<bool> ButtonState::*flag, bool value);
    // Requests breathing of the button, or stops it.
    void SetBreathing(std::uint32_t id, bool on);
    // Turns a request for the chat's breathing into running breathing. A stop that came in
    // meanwhile stays.
    void StartChatBreathing();

    // Gives the four meeting buttons default entries, which belong to an open session or do not.
    void Seed(bool present);
    void HideAll();
    void Clear();

    // The four meeting buttons, without the lock: their places never change, and their fields are
    // atomic one by one. Whoever changes a button queues another report right behind, so a moment's
    // older flag is soon put right, and no call of the host waits for a composition.
    const MeetingButtons& Meeting() const { return meeting_; }

    // Save copies without the lock: a host suspends from the thread that sets its buttons.
    void Save() { saved_ = meeting_; }
    void Restore();

 private:
    ButtonState& At(std::uint32_t id) VELA_REQUIRES(mutex_);

    Mutex mutex_;             // guards: others_, and changes of meeting_
    MeetingButtons meeting_;  // read without the lock by Meeting and Save
    MeetingButtons saved_;    // no lock: atomic fields, of the thread that activates
    std::unordered_map<std::uint32_t, ButtonState> others_ VELA_GUARDED_BY(mutex_);
};

}  // namespace vela
