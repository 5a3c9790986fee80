// The built VelaAgent.dll, loaded as a host loads it: by full path, each export by its name.
#pragma once

#include <windows.h>

#include <filesystem>

#include "include/VelaAgent.h"

// Every exported function, by its name in include/VelaAgent.h.
#define VELA_FOR_EACH_EXPORT(X)    \
    X(Activate)                    \
    X(EnableChatBreathing)         \
    X(EnableFeature)               \
    X(EnableSingleButton)          \
    X(GetClickMode)                \
    X(GetHapticTPIntensityLevel)   \
    X(GetVelaBrightness)           \
    X(Init)                        \
    X(InitHapticTP)                \
    X(InitLogger)                  \
    X(IsActivated)                 \
    X(IsChatBreathingEnabled)      \
    X(IsDetachable)                \
    X(IsFeatureEnabled)            \
    X(IsHapticTPPresent)           \
    X(IsSingleButtonEnabled)       \
    X(IsSupportBiDirectionSwipe)   \
    X(IsVelaPresent)               \
    X(SetButtonBreathing)          \
    X(SetButtonLight)              \
    X(SetButtonVisible)            \
    X(SetClickMode)                \
    X(SetHapticTPIntensityLevel)   \
    X(SetVelaBrightness)           \
    X(SetVelaButtonPressCallback)  \
    X(SetVelaStatusChangeCallback) \
    X(UnInit)                      \
    X(UnInitHapticTP)              \
    X(UnInitLogger)                \
    X(UpdateVelaState)

namespace acceptance {

// Stays loaded until the process ends, as in a host. Throws std::runtime_error when the file or one
// of the exports is missing.
class AgentDll {
 public:
    // VelaAgent.dll beside this program.
    AgentDll();
    explicit AgentDll(const std::filesystem::path& file);

#define VELA_DECLARE_EXPORT(name) decltype(&::name) name = nullptr;
    VELA_FOR_EACH_EXPORT(VELA_DECLARE_EXPORT)
#undef VELA_DECLARE_EXPORT
};

// The folder of this program.
std::filesystem::path ProgramFolder();

}  // namespace acceptance
