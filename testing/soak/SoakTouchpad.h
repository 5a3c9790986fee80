// The touchpad of a soak, simulated or virtual. All operations are thread-safe; those that need a
// plugged touchpad do nothing without one.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace soak {

using Bytes = std::vector<std::uint8_t>;
using virtual_touchpad::TouchpadLayout;

inline bool BeginsWith(const Bytes& report, const Bytes& beginning) {
    return report.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), report.begin());
}

// Returns whether a light report lights nothing and has no active button.
inline bool IsDark(const Bytes& report) {
    return std::all_of(report.begin() + 1, report.end(),
                       [](std::uint8_t byte) { return byte == 0; });
}

class SoakTouchpad {
 public:
    // Plugs in a touchpad, and a haptic touchpad beside it.
    static std::unique_ptr<SoakTouchpad> Make(const TouchpadLayout& layout);
    virtual ~SoakTouchpad() = default;

    virtual void Unplug() = 0;
    virtual void PlugIn() = 0;
    // Returns how often it was unplugged so far: a session opened at a lower count is disconnected.
    virtual unsigned Unplugged() const = 0;

    // Sends one input report. Bit n of `buttons` is usage 0x40 + n.
    virtual void Send(std::uint8_t buttons, std::uint8_t firmwareState) = 0;
    // Waits until a session has read all that was sent.
    virtual void WaitUntilRead() = 0;

    // While held, writes stay pending.
    virtual void HoldWrites(bool hold) = 0;
    // Forgets the reports that the devices have recorded; later ones count.
    virtual void ForgetWritten() = 0;
    // Waits for a light report that begins with `known` among those written since, and for a state
    // request after it. Returns the last light report before that request.
    virtual std::optional<Bytes> LightsBeforeRequest(const Bytes& known) = 0;
    // Waits until no session has the touchpad open and no write is pending. Returns the last light
    // report written since, which the touchpad goes on showing.
    virtual std::optional<Bytes> LightsAfterClosing() = 0;
};

}  // namespace soak
