// The stage for what the touchpad reports by itself.
#pragma once

#include "testing/kit/native/TouchpadTest.h"
#include "testing/kit/native/WrittenReports.h"

namespace kit {

// Bits of the firmware state.
constexpr std::uint8_t kFwTouchpadDisable = 0x80;
constexpr std::uint8_t kFwTouchpadEnable = 0x40;
constexpr std::uint8_t kFwSwipeOff = 0x20;

// What an update is answered with while the touchpad is disabled.
inline std::string CannotUpdate(bool temporaryDisable, bool tabletModeDisable) {
    return "INFO Update: Can't update Vela state because TemporaryDisable (" +
           std::to_string(temporaryDisable) + ") or TabletModeDisable (" +
           std::to_string(tabletModeDisable) + ")";
}

class InputTest : public TouchpadTest {
 protected:
    // A touchpad that reports in either layout.
    static TouchpadLayout BothLayouts() {
        TouchpadLayout layout;
        layout.inputReportIds = {virtual_touchpad::kButtonReportId,
                                 virtual_touchpad::kSecondLayoutReportId};
        return layout;
    }

    // The device sends a report, and the session is done with it: its reader asks for the next.
    void Receive(const Bytes& report) {
        ASSERT_TRUE(device_->WaitForPendingReads());
        device_->SendInput(report);
        ASSERT_TRUE(device_->WaitForPendingReads());
    }

    // Sets what the session knows of the touchpad's state, and forgets that the host was told.
    void ReceiveFirmwareState(std::uint8_t state) {
        ASSERT_NO_FATAL_FAILURE(Receive(InputReport({}, state)));
        HostCallbacks::Reset();
    }

    // Has the session update its lights without a change, so that the log tells whether it may.
    void TryUpdate() { session_.SetButtonLight(9, false); }

    std::vector<Bytes> Written() { return WrittenReports(session_, *device_); }
};

}  // namespace kit
