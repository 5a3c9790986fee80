// The agent's functions, of the linked-in agent or of the loaded library, under one roof.
#pragma once

#include "include/VelaAgent.h"

#define VELA_SOAK_FOR_EACH_EXPORT(X) \
    X(Activate)                      \
    X(EnableChatBreathing)           \
    X(EnableFeature)                 \
    X(EnableSingleButton)            \
    X(GetClickMode)                  \
    X(GetHapticTPIntensityLevel)     \
    X(GetVelaBrightness)             \
    X(Init)                          \
    X(InitHapticTP)                  \
    X(InitLogger)                    \
    X(IsActivated)                   \
    X(IsChatBreathingEnabled)        \
    X(IsDetachable)                  \
    X(IsFeatureEnabled)              \
    X(IsHapticTPPresent)             \
    X(IsSingleButtonEnabled)         \
    X(IsSupportBiDirectionSwipe)     \
    X(IsVelaPresent)                 \
    X(SetButtonBreathing)            \
    X(SetButtonLight)                \
    X(SetButtonVisible)              \
    X(SetClickMode)                  \
    X(SetHapticTPIntensityLevel)     \
    X(SetVelaBrightness)             \
    X(SetVelaButtonPressCallback)    \
    X(SetVelaStatusChangeCallback)   \
    X(UnInit)                        \
    X(UnInitHapticTP)                \
    X(UnInitLogger)                  \
    X(UpdateVelaState)

namespace soak {

struct Agent {
    // Natively there is nothing to load; on Windows VelaAgent.dll beside this program is, and
    // stays.
    Agent();

#define VELA_SOAK_DECLARE(name) decltype(&::name) name = nullptr;
    VELA_SOAK_FOR_EACH_EXPORT(VELA_SOAK_DECLARE)
#undef VELA_SOAK_DECLARE
};

}  // namespace soak
