// A short meeting on a touchpad, the same on Wine and on the simulated platform: what the touchpad
// sends, what it gets, and what the host is notified of.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "include/VelaAgent.h"
#include "tools/recording/CallRecord.h"

namespace recording {

// The exports that the meeting calls: linked ones or those of a loaded DLL.
struct Agent {
    VelaInitFunction Init;
    VelaUnInitFunction UnInit;
    VelaActivateFunction Activate;
    VelaEnableFeatureFunction EnableFeature;
    VelaEnableSingleButtonFunction EnableSingleButton;
    VelaSetButtonVisibleFunction SetButtonVisible;
    VelaSetButtonLightFunction SetButtonLight;
    VelaSetVelaBrightnessFunction SetVelaBrightness;
    VelaSetVelaButtonPressCallbackFunction SetVelaButtonPressCallback;
    VelaSetVelaStatusChangeCallbackFunction SetVelaStatusChangeCallback;
    VelaInitHapticTPFunction InitHapticTP;
    VelaUnInitHapticTPFunction UnInitHapticTP;
    VelaSetHapticTPIntensityLevelFunction SetHapticTPIntensityLevel;
    VelaGetHapticTPIntensityLevelFunction GetHapticTPIntensityLevel;
};

// Returns the exports of a library that is loaded, or of one that is linked, by their names.
template <typename Exports>
Agent AgentOf(const Exports& exports) {
    return {exports.Init,
            exports.UnInit,
            exports.Activate,
            exports.EnableFeature,
            exports.EnableSingleButton,
            exports.SetButtonVisible,
            exports.SetButtonLight,
            exports.SetVelaBrightness,
            exports.SetVelaButtonPressCallback,
            exports.SetVelaStatusChangeCallback,
            exports.InitHapticTP,
            exports.UnInitHapticTP,
            exports.SetHapticTPIntensityLevel,
            exports.GetHapticTPIntensityLevel};
}

// The device's side.
class Touchpad {
 public:
    virtual ~Touchpad() = default;
    virtual void SendInput(const Bytes& report) = 0;
    // Returns the output reports so far, each with its id if there are ids.
    virtual std::vector<Bytes> Outputs() = 0;
    // Returns the feature report with this id as the device has it.
    virtual Bytes Feature(std::uint8_t reportId) = 0;
};

// Returns {"init", "inputs", "outputs", "notifications"}; only "init" when the touchpad cannot be
// opened. `path` is that of the collection, whose preparsed data makes the input reports.
Json HoldMeeting(const Agent& agent, Touchpad& touchpad, const std::wstring& path);

// Sets the intensity of a haptic touchpad. Returns {"init", "set", "level", "feature"}: what the
// exports return, and the feature report with this id afterwards.
Json SetHapticLevel(const Agent& agent, Touchpad& touchpad, std::uint8_t reportId);

}  // namespace recording
