/* A C11 host's view of the header, which is included alone and first. */
#include "include/VelaAgent.h"

#include "testing/unit/interface/HeaderInC.h"

#define HAS_TYPE(name, type)                                                           \
    _Static_assert(_Generic(&name, type : 1, default : 0), #name " has another type"); \
    _Static_assert(_Generic(&name, Vela##name##Function : 1, default : 0),             \
                   #name " has another pointer type")

HAS_TYPE(Activate, int32_t (*)(uint32_t));
HAS_TYPE(EnableChatBreathing, int32_t (*)(int32_t));
HAS_TYPE(EnableFeature, int32_t (*)(int32_t));
HAS_TYPE(EnableSingleButton, int32_t (*)(uint32_t, int32_t));
HAS_TYPE(GetClickMode, uint32_t (*)(void));
HAS_TYPE(GetHapticTPIntensityLevel, uint32_t (*)(void));
HAS_TYPE(GetVelaBrightness, uint32_t (*)(void));
HAS_TYPE(Init, int32_t (*)(void));
HAS_TYPE(InitHapticTP, int32_t (*)(void));
HAS_TYPE(InitLogger, void (*)(const wchar_t*));
HAS_TYPE(IsActivated, int32_t (*)(void));
HAS_TYPE(IsChatBreathingEnabled, int32_t (*)(void));
HAS_TYPE(IsDetachable, int32_t (*)(void));
HAS_TYPE(IsFeatureEnabled, int32_t (*)(void));
HAS_TYPE(IsHapticTPPresent, int32_t (*)(void));
HAS_TYPE(IsSingleButtonEnabled, int32_t (*)(uint32_t));
HAS_TYPE(IsSupportBiDirectionSwipe, int32_t (*)(void));
HAS_TYPE(IsVelaPresent, int32_t (*)(void));
HAS_TYPE(SetButtonBreathing, int32_t (*)(uint32_t, int32_t));
HAS_TYPE(SetButtonLight, int32_t (*)(uint32_t, int32_t));
HAS_TYPE(SetButtonVisible, int32_t (*)(uint32_t, int32_t));
HAS_TYPE(SetClickMode, int32_t (*)(uint32_t, uint16_t));
HAS_TYPE(SetHapticTPIntensityLevel, int32_t (*)(uint32_t));
HAS_TYPE(SetVelaBrightness, void (*)(uint32_t));
HAS_TYPE(SetVelaButtonPressCallback, void (*)(void (*)(uint32_t, uint32_t)));
HAS_TYPE(SetVelaStatusChangeCallback, void (*)(void (*)(uint32_t)));
HAS_TYPE(UnInit, int32_t (*)(void));
HAS_TYPE(UnInitHapticTP, int32_t (*)(void));
HAS_TYPE(UnInitLogger, void (*)(void));
HAS_TYPE(UpdateVelaState, int32_t (*)(void));

#define EXPORT(name) {#name, (void (*)(void))name},

const struct NamedExport kExportsInC[] = {VELA_AGENT_FOR_EACH_EXPORT(EXPORT)};
const size_t kExportsInCCount = sizeof(kExportsInC) / sizeof(kExportsInC[0]);
