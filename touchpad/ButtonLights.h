// The host's requests for the buttons, and the output reports that show them.
#pragma once

#include <atomic>
#include <cstdint>
#include <vector>

#include <windows.h>

#include "touchpad/ButtonTable.h"
#include "touchpad/LedReport.h"
#include "touchpad/ReportWriter.h"
#include "touchpad/SessionStatus.h"
#include "touchpad/TouchpadDevice.h"

namespace vela {

// Any thread may call any operation. The setters change one thing and queue a report; they wait for
// the write in flight, and return false while the session is closed.
class ButtonLights {
 public:
    ButtonLights(TouchpadDevice& device, SessionStatus& status, ButtonTable& buttons,
                 ReportWriter& writer)
        : device_(device), status_(status), buttons_(buttons), writer_(writer) {}
    ButtonLights(const ButtonLights&) = delete;
    ButtonLights& operator=(const ButtonLights&) = delete;

    bool EnableButton(std::uint32_t buttonId, bool enable);
    bool EnableButtonBreathing(std::uint32_t buttonId, bool enable);
    bool SetButtonVisible(std::uint32_t buttonId, bool visible);
    bool SetButtonLight(std::uint32_t buttonId, bool on);
    bool SetButtonBreathing(std::uint32_t buttonId, bool on);

    // Sets the value of every lit LED usage, 0 (dark) to 255. Ignored while the session is closed.
    void SetBrightness(std::uint8_t level);
    std::uint8_t GetBrightness() const { return brightness_; }

    // Queues a report of the whole state, unless the touchpad is unplugged or disabled: the
    // firmware drives the lights of a disabled touchpad. With `force` the report is written even
    // when it equals the last one.
    void Update(bool force);
    // Queues a firmware state request. Returns false when the touchpad has no such request.
    bool UpdateVelaState();

    // The report that darkens the touchpad, whatever the host has set.
    std::vector<BYTE> DarkReport();

 private:
    // Sets the flag, logs a line of `format`, which takes the id and the value, and queues a
    // report.
    bool SetFlag(std::uint32_t buttonId, Relaxed<bool> ButtonState::*flag, bool value,
                 const char* function, const char* format);
    // Composes the open touchpad's report. Returns an empty one while no touchpad is open.
    std::vector<BYTE> Compose(const LedState& state);

    TouchpadDevice& device_;  // these four have locks of their own
    SessionStatus& status_;
    ButtonTable& buttons_;
    ReportWriter& writer_;
    std::atomic<std::uint8_t> brightness_{3};  // no lock; kept from one session to the next
};

}  // namespace vela
