// The steps that inputs consist of: every export, and every event at the devices.
#include "include/VelaAgent.h"
#include "testing/fuzz/CallFixture.h"
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

// Calls an export that takes a button and a flag.
template <VELA_BOOL (*kExport)(std::uint32_t, VELA_BOOL),
          bool (SessionModel::*kModel)(std::uint32_t, bool)>
void SetButton(CallFixture& fixture, FuzzInput& input) {
    const std::uint32_t id = ButtonId(input);
    const VELA_BOOL value = Bool(input);
    fixture.Same(kExport(id, value), (fixture.model.*kModel)(id, value != 0), "a button's setter");
}

template <VELA_BOOL (*kExport)(VELA_BOOL), bool (SessionModel::*kModel)(bool)>
void Set(CallFixture& fixture, FuzzInput& input) {
    const VELA_BOOL value = Bool(input);
    fixture.Same(kExport(value), (fixture.model.*kModel)(value != 0), "a setter");
}

void Activate(CallFixture& fixture, FuzzInput& input) {
    const std::uint32_t value = Activation(input);
    fixture.Same(::Activate(value), fixture.model.Activate(value), "Activate");
}

void SetPressCallback(CallFixture& fixture, FuzzInput& input) {
    const bool set = input.Flag();
    ::SetVelaButtonPressCallback(set ? kit::OnButtonPress : nullptr);
    fixture.model.SetButtonPressCallback(set);
}

void SetStatusCallback(CallFixture& fixture, FuzzInput& input) {
    const bool set = input.Flag();
    ::SetVelaStatusChangeCallback(set ? kit::OnStatusChange : nullptr);
    fixture.model.SetStatusChangeCallback(set);
}

void SetBrightness(CallFixture& fixture, FuzzInput& input) {
    const std::uint32_t level = input.Word();
    ::SetVelaBrightness(level);
    fixture.model.SetBrightness(level);
}

void SetClickMode(CallFixture& fixture, FuzzInput& input) {
    const std::uint32_t mode = input.Byte() % 4U;
    const std::uint16_t value = input.Word();
    fixture.Same(::SetClickMode(mode, value), fixture.model.SetClickMode(mode, value),
                 "SetClickMode");
    if (!fixture.model.HasClickMode()) return;
    const Bytes feature = fixture.touchpad->Feature(virtual_touchpad::kClickModeReportId);
    fixture.Same(feature[2] | feature[3] << 8, fixture.model.ClickModeValue(), "the click mode");
}

void SetHapticLevel(CallFixture& fixture, FuzzInput& input) {
    const std::uint32_t level = input.Word();
    fixture.Same(::SetHapticTPIntensityLevel(level), fixture.haptic.connected,
                 "SetHapticTPIntensityLevel");
    // The device's field has seven bits.
    if (fixture.haptic.connected) fixture.haptic.level = level & 0x7FU;
}

void InitHaptic(CallFixture& fixture, FuzzInput&) {
    HapticModel& haptic = fixture.haptic;
    if (!haptic.open && haptic.plugged) haptic.open = haptic.connected = true;
    fixture.Same(::InitHapticTP(), haptic.open, "InitHapticTP");
}

void UnInitHaptic(CallFixture& fixture, FuzzInput&) {
    fixture.Same(::UnInitHapticTP(), fixture.haptic.open, "UnInitHapticTP");
    fixture.haptic.open = fixture.haptic.connected = false;
}

void Receive(CallFixture& fixture, FuzzInput& input) {
    const std::uint8_t reportId = input.OneOf(fixture.model.Layout().inputReportIds);
    const std::uint8_t buttons = input.Byte();
    fixture.Send(reportId, buttons, input.Byte());
}

// Presses one button at a time, as users do.
void PressOne(CallFixture& fixture, FuzzInput& input) {
    const std::uint8_t reportId = fixture.model.Layout().inputReportIds.front();
    fixture.Send(reportId, static_cast<std::uint8_t>(1U << input.Byte() % 8U), 0);
}

// New steps come last: the corpus names them by their place.
constexpr CallStep kSteps[] = {
    {"Init", [](CallFixture& fixture, FuzzInput&) { fixture.Init(); }},
    {"UnInit", [](CallFixture& fixture, FuzzInput&) { fixture.UnInit(); }},
    {"SetVelaButtonPressCallback", SetPressCallback},
    {"SetVelaStatusChangeCallback", SetStatusCallback},
    {"IsVelaPresent",
     [](CallFixture& fixture, FuzzInput&) {
         fixture.Same(::IsVelaPresent(), fixture.model.IsVelaPresent(), "IsVelaPresent");
     }},
    {"EnableFeature", Set<::EnableFeature, &SessionModel::EnableFeature>},
    {"Activate", Activate},
    {"EnableSingleButton", SetButton<::EnableSingleButton, &SessionModel::EnableSingleButton>},
    {"SetButtonVisible", SetButton<::SetButtonVisible, &SessionModel::SetButtonVisible>},
    {"SetButtonLight", SetButton<::SetButtonLight, &SessionModel::SetButtonLight>},
    {"SetButtonBreathing", SetButton<::SetButtonBreathing, &SessionModel::SetButtonBreathing>},
    {"EnableChatBreathing", Set<::EnableChatBreathing, &SessionModel::EnableChatBreathing>},
    {"IsSingleButtonEnabled",
     [](CallFixture& fixture, FuzzInput& input) {
         const std::uint32_t id = ButtonId(input);
         fixture.Same(::IsSingleButtonEnabled(id), fixture.model.IsSingleButtonEnabled(id),
                      "IsSingleButtonEnabled");
     }},
    {"SetVelaBrightness", SetBrightness},
    {"SetClickMode", SetClickMode},
    {"GetClickMode",
     [](CallFixture& fixture, FuzzInput&) {
         fixture.Same(::GetClickMode(), fixture.model.GetClickMode(), "GetClickMode");
     }},
    {"UpdateVelaState",
     [](CallFixture& fixture, FuzzInput&) {
         fixture.Same(::UpdateVelaState(), fixture.model.UpdateVelaState(), "UpdateVelaState");
     }},
    {"IsDetachable",
     [](CallFixture& fixture, FuzzInput&) {
         fixture.Same(::IsDetachable(), fixture.model.IsDetachable(), "IsDetachable");
     }},
    {"IsSupportBiDirectionSwipe",
     [](CallFixture& fixture, FuzzInput&) {
         fixture.Same(::IsSupportBiDirectionSwipe(), fixture.model.IsSupportBiDirectionSwipe(),
                      "IsSupportBiDirectionSwipe");
     }},
    {"an input report", Receive},
    {"a press", PressOne},
    {"unplugging", [](CallFixture& fixture, FuzzInput&) { fixture.Unplug(); }},
    {"plugging in", [](CallFixture& fixture, FuzzInput&) { fixture.PlugIn(); }},
    {"the touchpad held elsewhere",
     [](CallFixture& fixture, FuzzInput& input) { fixture.HoldElsewhere(input.Flag()); }},
    {"another user's session",
     [](CallFixture& fixture, FuzzInput& input) { fixture.HoldMutexElsewhere(input.Flag()); }},
    {"InitLogger", [](CallFixture& fixture, FuzzInput&) { fixture.InitLogger(); }},
    {"UnInitLogger", [](CallFixture& fixture, FuzzInput&) { fixture.UnInitLogger(); }},
    {"the haptic touchpad's plug",
     [](CallFixture& fixture, FuzzInput& input) { fixture.PlugHaptic(input.Flag()); }},
    {"IsHapticTPPresent",
     [](CallFixture& fixture, FuzzInput&) {
         fixture.Same(::IsHapticTPPresent(), fixture.haptic.plugged, "IsHapticTPPresent");
     }},
    {"InitHapticTP", InitHaptic},
    {"UnInitHapticTP", UnInitHaptic},
    {"SetHapticTPIntensityLevel", SetHapticLevel},
    {"GetHapticTPIntensityLevel",
     [](CallFixture& fixture, FuzzInput&) {
         fixture.Same(::GetHapticTPIntensityLevel(),
                      fixture.haptic.connected ? fixture.haptic.level : 0,
                      "GetHapticTPIntensityLevel");
     }},
    {"a call that fails", [](CallFixture& fixture, FuzzInput& input) { fixture.FailACall(input); }},
};

}  // namespace

CallStep TakeStep(FuzzInput& input) { return input.OneOf(kSteps); }

}  // namespace fuzz
