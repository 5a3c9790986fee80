// A library in place of VelaAgent.dll, for answers that a virtual touchpad cannot bring about in
// another process: Init answers what the environment says, and nothing else succeeds.
#include <cstdlib>

#include "VelaAgent.h"

int32_t Init() {
    const char* const answer = std::getenv("VELA_STAND_IN_INIT");
    return answer == nullptr ? VELA_INIT_NOT_FOUND : std::atoi(answer);
}
VELA_BOOL IsVelaPresent() { return 1; }

void InitLogger(const wchar_t*) {}
void UnInitLogger() {}
VELA_BOOL UnInit() { return 0; }
void SetVelaButtonPressCallback(VelaButtonPressCallback) {}
void SetVelaStatusChangeCallback(VelaStatusChangeCallback) {}
VELA_BOOL EnableFeature(VELA_BOOL) { return 0; }
VELA_BOOL IsFeatureEnabled() { return 0; }
VELA_BOOL Activate(uint32_t) { return 0; }
VELA_BOOL IsActivated() { return 0; }
VELA_BOOL EnableSingleButton(uint32_t, VELA_BOOL) { return 0; }
VELA_BOOL IsSingleButtonEnabled(uint32_t) { return 0; }
VELA_BOOL SetButtonVisible(uint32_t, VELA_BOOL) { return 0; }
VELA_BOOL SetButtonLight(uint32_t, VELA_BOOL) { return 0; }
VELA_BOOL EnableChatBreathing(VELA_BOOL) { return 0; }
VELA_BOOL IsChatBreathingEnabled() { return 0; }
VELA_BOOL SetButtonBreathing(uint32_t, VELA_BOOL) { return 0; }
void SetVelaBrightness(uint32_t) {}
uint32_t GetVelaBrightness() { return 0; }
int32_t SetClickMode(uint32_t, uint16_t) { return 0; }
uint32_t GetClickMode() { return 0; }
VELA_BOOL UpdateVelaState() { return 0; }
VELA_BOOL IsDetachable() { return 0; }
VELA_BOOL IsSupportBiDirectionSwipe() { return 0; }
VELA_BOOL IsHapticTPPresent() { return 1; }
VELA_BOOL InitHapticTP() { return 0; }
VELA_BOOL UnInitHapticTP() { return 0; }
VELA_BOOL SetHapticTPIntensityLevel(uint32_t) { return 0; }
uint32_t GetHapticTPIntensityLevel() { return 0; }
