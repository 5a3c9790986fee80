// The session's table of buttons, by id, and the copy of it that a suspended session keeps.
#pragma once

#include <array>
#include <cstdint>
#include <unordered_map>

#include "platform/Mutex.h"
#include "touchpad/ButtonState.h"

namespace vela {

// Any thread may call any operation. An id that is not in the table gets a default entry at its
// first use; only the entries of the four meeting buttons reach a report.
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
    // Marks the chat's breathing as running if it is requested. A stop that came in meanwhile
    // stays.
    void StartChatBreathing();

    // Resets the four meeting buttons to default entries with this value of `present`.
    void Seed(bool present);
    void HideAll();
    void Clear();

    // The four meeting buttons, read without the lock: the array never moves, and each field is
    // atomic. Every change of a button queues another report, which soon corrects one composed from
    // older values. So no call of the host waits for a composition.
    const MeetingButtons& Meeting() const { return meeting_; }

    // Save copies without the lock: a host suspends from the thread that sets its buttons.
    void Save() { saved_ = meeting_; }
    void Restore();

 private:
    ButtonState& At(std::uint32_t id) VELA_REQUIRES(mutex_);

    Mutex mutex_;             // guards: others_, and changes of meeting_
    MeetingButtons meeting_;  // read without the lock by Meeting and Save
    MeetingButtons saved_;    // no lock: atomic fields, used by the thread in Activate
    std::unordered_map<std::uint32_t, ButtonState> others_ VELA_GUARDED_BY(mutex_);
};

}  // namespace vela
