// The exports that control an open session: features, buttons, settings and queries.
#include "include/VelaAgent.h"
#include "interface/Singletons.h"

using namespace vela;

VELA_BOOL EnableFeature(VELA_BOOL enable) { return TouchpadSession().Enable(enable != 0); }

VELA_BOOL IsFeatureEnabled() { return TouchpadSession().IsEnabled(); }

VELA_BOOL Activate(uint32_t activation) { return TouchpadSession().Activate(activation); }

VELA_BOOL IsActivated() { return TouchpadSession().IsActivated(); }

VELA_BOOL EnableSingleButton(uint32_t buttonId, VELA_BOOL enable) {
    return TouchpadSession().EnableButton(buttonId, enable != 0);
}

VELA_BOOL IsSingleButtonEnabled(uint32_t buttonId) {
    return TouchpadSession().IsButtonEnabled(buttonId);
}

VELA_BOOL EnableChatBreathing(VELA_BOOL enable) {
    return TouchpadSession().EnableButtonBreathing(BUTTON_ID_CHAT, enable != 0);
}

VELA_BOOL IsChatBreathingEnabled() {
    return TouchpadSession().IsButtonBreathingEnabled(BUTTON_ID_CHAT);
}

void SetVelaBrightness(uint32_t level) {
    TouchpadSession().SetBrightness(static_cast<std::uint8_t>(level & 0xFF));
}

uint32_t GetVelaBrightness() { return TouchpadSession().GetBrightness(); }

int32_t SetClickMode(uint32_t mode, uint16_t value) {
    return TouchpadSession().SetClickMode(mode, value);
}

uint32_t GetClickMode() { return TouchpadSession().GetClickMode(); }

VELA_BOOL SetButtonLight(uint32_t buttonId, VELA_BOOL on) {
    return TouchpadSession().SetButtonLight(buttonId, on != 0);
}

VELA_BOOL SetButtonVisible(uint32_t buttonId, VELA_BOOL visible) {
    return TouchpadSession().SetButtonVisible(buttonId, visible != 0);
}

VELA_BOOL SetButtonBreathing(uint32_t buttonId, VELA_BOOL on) {
    return TouchpadSession().SetButtonBreathing(buttonId, on != 0);
}

VELA_BOOL IsSupportBiDirectionSwipe() { return TouchpadSession().IsSupportBiDirectionSwipe(); }

VELA_BOOL UpdateVelaState() { return TouchpadSession().UpdateVelaState(); }

VELA_BOOL IsDetachable() { return TouchpadSession().IsDetachable(); }
