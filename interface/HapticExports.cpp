// The exports of the haptic touchpad.
#include "hid/HIDDiscovery.h"
#include "include/VelaAgent.h"
#include "interface/Singletons.h"

using namespace vela;

VELA_BOOL IsHapticTPPresent() {
    return !ScanHIDInformation(&HapticTouchpadSession())->devicePath.empty();
}

VELA_BOOL InitHapticTP() {
    CHapticTouchpadHID& session = HapticTouchpadSession();
    return session.Initialize(ScanHIDInformation(&session)) == kHidOpen;
}

VELA_BOOL UnInitHapticTP() { return HapticTouchpadSession().Uninitialize(); }

VELA_BOOL SetHapticTPIntensityLevel(uint32_t level) {
    return HapticTouchpadSession().SetIntensityLevel(level);
}

uint32_t GetHapticTPIntensityLevel() { return HapticTouchpadSession().GetIntensityLevel(); }
