// The steps of which the inputs are made: every export, and what may happen to the devices
// meanwhile.
#include "include/VelaAgent.h"
#include "testing/fuzz/CallStage.h"
#include "testing/kit/HostCallbacks.h"

namespace fuzz {
namespace {

constexpr std::uint32_t kNone = 0xFFFFFFFF;

std::uint32_t ButtonId(FuzzInput& input) {
    constexpr std::uint32_t kIds[] = {0, 1, 2, 3, 7, kNone};
    return input.OneOf(kIds);
}

VELA_BOOL Bool(FuzzInput& input) {
    constexpr VELA_BOOL kValues[] = {0, 1, -1, 256};
    return input.OneOf(kValues);
}

std::uint32_t Activation(FuzzInput& input) {
    constexpr std::uint32_t kValues[] = {0, 1, 2, 3, 4, 5, 6, kNone};
    return input.OneOf(kValues);
}

// An export that takes a button and a flag.
template <VELA_BOOL (*kExport)(std::uint32_t, VELA_BOOL),
          bool (SessionModel::*kModel)(std::uint32_t, bool)>
void SetButton(CallStage& stage, FuzzInput& input) {
    const std::uint32_t id = ButtonId(input);
    const VELA_BOOL value = Bool(input);
    stage.Same(kExport(id, value), (stage.model.*kModel)(id, value != 0), "a button's setter");
}

template <VELA_BOOL (*kExport)(VELA_BOOL), bool (SessionModel::*kModel)(bool)>
void Set(CallStage& stage, FuzzInput& input) {
    const VELA_BOOL value = Bool(input);
    stage.Same(kExport(value), (stage.model.*kModel)(value != 0), "a setter");
}

void Activate(CallStage& stage, FuzzInput& input) {
    const std::uint32_t value = Activation(input);
    stage.Same(::Activate(value), stage.model.Activate(value), "Activate");
}

void SetPressCallback(CallStage& stage, FuzzInput& input) {
    const bool set = input.Flag();
    ::SetVelaButtonPressCallback(set ? kit::OnButtonPress : nullptr);
    stage.model.SetButtonPressCallback(set);
}

void SetStatusCallback(CallStage& stage, FuzzInput& input) {
    const bool set = input.Flag();
    ::SetVelaStatusChangeCallback(set ? kit::OnStatusChange : nullptr);
    stage.model.SetStatusChangeCallback(set);
}

void SetBrightness(CallStage& stage, FuzzInput& input) {
    const std::uint32_t level = input.Word();
    ::SetVelaBrightness(level);
    stage.model.SetBrightness(level);
}

void SetClickMode(CallStage& stage, FuzzInput& input) {
    const std::uint32_t mode = input.Byte() % 4U;
    const std::uint16_t value = input.Word();
    stage.Same(::SetClickMode(mode, value), stage.model.SetClickMode(mode, value), "SetClickMode");
    if (!stage.model.HasClickMode()) return;
    const Bytes feature = stage.touchpad->Feature(virtual_touchpad::kClickModeReportId);
    stage.Same(feature[2] | feature[3] << 8, stage.model.ClickModeValue(), "the click mode");
}

void SetHapticLevel(CallStage& stage, FuzzInput& input) {
    const std::uint32_t level = input.Word();
    stage.Same(::SetHapticTPIntensityLevel(level), stage.haptic.connected,
               "SetHapticTPIntensityLevel");
    // The device's field has seven bits.
    if (stage.haptic.connected) stage.haptic.level = level & 0x7FU;
}

void InitHaptic(CallStage& stage, FuzzInput&) {
    HapticModel& haptic = stage.haptic;
    if (!haptic.open && haptic.plugged) haptic.open = haptic.connected = true;
    stage.Same(::InitHapticTP(), haptic.open, "InitHapticTP");
}

void UnInitHaptic(CallStage& stage, FuzzInput&) {
    stage.Same(::UnInitHapticTP(), stage.haptic.open, "UnInitHapticTP");
    stage.haptic.open = stage.haptic.connected = false;
}

void Receive(CallStage& stage, FuzzInput& input) {
    const std::uint8_t reportId = input.OneOf(stage.model.Layout().inputReportIds);
    const std::uint8_t buttons = input.Byte();
    stage.Send(reportId, buttons, input.Byte());
}

// As users press: one button at a time.
void PressOne(CallStage& stage, FuzzInput& input) {
    const std::uint8_t reportId = stage.model.Layout().inputReportIds.front();
    stage.Send(reportId, static_cast<std::uint8_t>(1U << input.Byte() % 8U), 0);
}

constexpr CallStep kSteps[] = {
    {"Init", [](CallStage& stage, FuzzInput&) { stage.Init(); }},
    {"UnInit", [](CallStage& stage, FuzzInput&) { stage.UnInit(); }},
    {"SetVelaButtonPressCallback", SetPressCallback},
    {"SetVelaStatusChangeCallback", SetStatusCallback},
    {"IsVelaPresent",
     [](CallStage& stage, FuzzInput&) {
         stage.Same(::IsVelaPresent(), stage.model.IsVelaPresent(), "IsVelaPresent");
     }},
    {"EnableFeature", Set<::EnableFeature, &SessionModel::EnableFeature>},
    {"Activate", Activate},
    {"EnableSingleButton", SetButton<::EnableSingleButton, &SessionModel::EnableSingleButton>},
    {"SetButtonVisible", SetButton<::SetButtonVisible, &SessionModel::SetButtonVisible>},
    {"SetButtonLight", SetButton<::SetButtonLight, &SessionModel::SetButtonLight>},
    {"SetButtonBreathing", SetButton<::SetButtonBreathing, &SessionModel::SetButtonBreathing>},
    {"EnableChatBreathing", Set<::EnableChatBreathing, &SessionModel::EnableChatBreathing>},
    {"IsSingleButtonEnabled",
     [](CallStage& stage, FuzzInput& input) {
         const std::uint32_t id = ButtonId(input);
         stage.Same(::IsSingleButtonEnabled(id), stage.model.IsSingleButtonEnabled(id),
                    "IsSingleButtonEnabled");
     }},
    {"SetVelaBrightness", SetBrightness},
    {"SetClickMode", SetClickMode},
    {"GetClickMode",
     [](CallStage& stage, FuzzInput&) {
         stage.Same(::GetClickMode(), stage.model.GetClickMode(), "GetClickMode");
     }},
    {"UpdateVelaState",
     [](CallStage& stage, FuzzInput&) {
         stage.Same(::UpdateVelaState(), stage.model.UpdateVelaState(), "UpdateVelaState");
     }},
    {"IsDetachable",
     [](CallStage& stage, FuzzInput&) {
         stage.Same(::IsDetachable(), stage.model.IsDetachable(), "IsDetachable");
     }},
    {"IsSupportBiDirectionSwipe",
     [](CallStage& stage, FuzzInput&) {
         stage.Same(::IsSupportBiDirectionSwipe(), stage.model.IsSupportBiDirectionSwipe(),
                    "IsSupportBiDirectionSwipe");
     }},
    {"an input report", Receive},
    {"a press", PressOne},
    {"unplugging", [](CallStage& stage, FuzzInput&) { stage.Unplug(); }},
    {"plugging in", [](CallStage& stage, FuzzInput&) { stage.PlugIn(); }},
    {"the touchpad held elsewhere",
     [](CallStage& stage, FuzzInput& input) { stage.HoldElsewhere(input.Flag()); }},
    {"another user's session",
     [](CallStage& stage, FuzzInput& input) { stage.HoldMutexElsewhere(input.Flag()); }},
    {"InitLogger", [](CallStage& stage, FuzzInput&) { stage.InitLogger(); }},
    {"UnInitLogger", [](CallStage& stage, FuzzInput&) { stage.UnInitLogger(); }},
    {"the haptic touchpad's plug",
     [](CallStage& stage, FuzzInput& input) { stage.PlugHaptic(input.Flag()); }},
    {"IsHapticTPPresent",
     [](CallStage& stage, FuzzInput&) {
         stage.Same(::IsHapticTPPresent(), stage.haptic.plugged, "IsHapticTPPresent");
     }},
    {"InitHapticTP", InitHaptic},
    {"UnInitHapticTP", UnInitHaptic},
    {"SetHapticTPIntensityLevel", SetHapticLevel},
    {"GetHapticTPIntensityLevel",
     [](CallStage& stage, FuzzInput&) {
         stage.Same(::GetHapticTPIntensityLevel(), stage.haptic.connected ? stage.haptic.level : 0,
                    "GetHapticTPIntensityLevel");
     }},
};

}  // namespace

CallStep TakeStep(FuzzInput& input) { return input.OneOf(kSteps); }

}  // namespace fuzz
