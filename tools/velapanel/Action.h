// The actions of the user at the panel, each with its place, its key and the event that the
// touchpad then reports.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace velapanel {

enum class Action {
    Camera,
    Microphone,
    Chat,
    ShareScreen,
    Gesture,
    Sync,
    Enable,
    Disable,
    Plug,  // unplugs the touchpad, or plugs it in again
};

struct ActionInfo {
    Action action;
    const wchar_t* label;
    wchar_t key;
    std::uint16_t eventUsage;  // 0: none
};

constexpr std::size_t kButtonCount = 4;  // the first ones are on the touchpad, the others below it

constexpr std::array<ActionInfo, 9> kActions{{
    {Action::Camera, L"Camera", L'1', 0x41},
    {Action::Microphone, L"Microphone", L'2', 0x44},
    {Action::Chat, L"Chat", L'3', 0x43},
    {Action::ShareScreen, L"Share screen", L'4', 0x42},
    {Action::Gesture, L"Gesture", L'G', 0x45},
    {Action::Sync, L"SYNC", L'S', 0x40},
    {Action::Enable, L"Enable", L'E', 0x46},
    {Action::Disable, L"Disable", L'D', 0x47},
    {Action::Plug, L"Unplug", L'U', 0},
}};

constexpr std::size_t kKeyCount = kActions.size() - kButtonCount;

}  // namespace velapanel
