// The session's table of buttons, by id.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "touchpad/ButtonState.h"

namespace vela {

class ButtonTable {
 public:
    using MeetingButtons = std::array<ButtonState, kMeetingButtonCount>;

    // Looking an id up that no meeting button has inserts a default entry, which never reaches a
    // report.
    ButtonState& operator[](std::uint32_t id) {
        return id < kMeetingButtonCount ? meetingButtons_[id] : others_[id];
    }
    void Clear() {
        meetingButtons_.fill(ButtonState{});
        others_.clear();
    }

    // The four meeting buttons. Their places never change, so that they can be read while another
    // thread changes the table.
    const MeetingButtons& Meeting() const { return meetingButtons_; }
    void SetMeeting(const MeetingButtons& buttons) { meetingButtons_ = buttons; }

 private:
    MeetingButtons meetingButtons_;
    std::unordered_map<std::uint32_t, ButtonState> others_;
};

}  // namespace vela
