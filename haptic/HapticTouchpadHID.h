// The session with a haptic touchpad: reads and sets the intensity of its feedback.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include <windows.h>

#include "hid/HIDInformation.h"
#include "touchpad/IHid.h"

namespace vela {

// One exists per process, behind the exports. Takes no lock: each get or set is one synchronous
// exchange on the caller's thread, and the host must not close the session meanwhile.
class CHapticTouchpadHID : public IHid {
 public:
    CHapticTouchpadHID() = default;
    // Leaves the handle open: UnInitHapticTP closes it before, or the platform at process exit.
    ~CHapticTouchpadHID() override = default;

    HidDeviceFilterList GetHidDeviceFilters() override;
    HidCapUsagePageList GetValueCapUsagePages() override;
    HidCapUsagePageList GetButtonCapUsagePages() override;
    std::uint32_t Initialize(const std::shared_ptr<const CHIDInformation>& information) override;
    bool Uninitialize() override;

    // Sets the raw value of the intensity field, in the device's own logical range, which only the
    // platform and the device check. Returns false when it was not set, and logs why while open.
    bool SetIntensityLevel(std::uint32_t level);
    // Returns 0 on any failure; only the log distinguishes that from a device's 0.
    std::uint32_t GetIntensityLevel();

 private:
    struct IntensityReport;

    bool ReadIntensityReport(const char* functionName, IntensityReport& report);

    std::atomic<bool> initialized_{false};
    std::shared_ptr<const CHIDInformation> information_;
    HANDLE device_ = nullptr;
};

}  // namespace vela
