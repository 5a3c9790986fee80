// The fixture for input reports, which the touchpad sends unasked.
#pragma once

#include "testing/kit/native/TouchpadTest.h"
#include "testing/kit/native/WrittenReports.h"

namespace kit {

// Bits of the firmware state.
constexpr std::uint8_t kFwTouchpadDisable = 0x80;
constexpr std::uint8_t kFwTouchpadEnable = 0x40;
constexpr std::uint8_t kFwSwipeOff = 0x20;

// Returns the log line of an update while the touchpad is disabled.
inline std::string CannotUpdate(bool temporaryDisable, bool tabletModeDisable) {
    return "INFO Update: Can't update Vela state because TemporaryDisable (" +
           std::to_string(temporaryDisable) + ") or TabletModeDisable (" +
           std::to_string(tabletModeDisable) + ")";
}

class InputTest : public TouchpadTest {
 protected:
    // Returns a touchpad with both input report layouts.
    static TouchpadLayout BothLayouts() {
        TouchpadLayout layout;
        layout.inputReportIds = {virtual_touchpad::kButtonReportId,
                                 virtual_touchpad::kSecondLayoutReportId};
        return layout;
    }

    // Sends a report and waits until the session has handled it: its reader has started the next
    // read.
    void Receive(const Bytes& report) {
        ASSERT_TRUE(device_->WaitForPendingReads());
        device_->SendInput(report);
        ASSERT_TRUE(device_->WaitForPendingReads());
    }

    // Sends the firmware state to the session, and forgets the host's callbacks.
    void ReceiveFirmwareState(std::uint8_t state) {
        ASSERT_NO_FATAL_FAILURE(Receive(InputReport({}, state)));
        HostCallbacks::Reset();
    }

    // Has the session update its lights without a change: the log shows whether updates are
    // allowed.
    void TryUpdate() { session_.SetButtonLight(9, false); }

    std::vector<Bytes> Written() { return WrittenReports(session_, *device_); }
};

}  // namespace kit
