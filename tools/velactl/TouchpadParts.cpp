#include "tools/velactl/TouchpadParts.h"

#include "tools/velactl/Text.h"
#include "touchpad/TouchpadUsages.h"

namespace velactl {
namespace {

struct NamedUsage {
    HIDP_REPORT_TYPE type;
    USAGE usage;
    const char* name;
};

constexpr NamedUsage kParts[] = {
    {HidP_Input, vela::USAGE_CAMERA_BUTTON, "camera button"},
    {HidP_Input, vela::USAGE_MIC_BUTTON, "microphone button"},
    {HidP_Input, vela::USAGE_CHAT_BUTTON, "chat button"},
    {HidP_Input, vela::USAGE_SHARE_SCREEN_BUTTON, "share screen button"},
    {HidP_Output, vela::USAGE_CAMERA_LED_ON, "camera light for on"},
    {HidP_Output, vela::USAGE_CAMERA_LED_OFF, "camera light for off"},
    {HidP_Output, vela::USAGE_AUDIO_LED_ON, "microphone light for on"},
    {HidP_Output, vela::USAGE_AUDIO_LED_OFF, "microphone light for off"},
    {HidP_Output, vela::USAGE_CHAT_LED, "chat light"},
    {HidP_Output, vela::USAGE_SHARE_SCREEN_LED, "share screen light"},
    {HidP_Output, vela::USAGE_CAMERA_ACTIVE, "active camera"},
    {HidP_Output, vela::USAGE_AUDIO_ACTIVE, "active microphone"},
    {HidP_Output, vela::USAGE_CHAT_ACTIVE, "active chat"},
    {HidP_Output, vela::USAGE_SHARE_SCREEN_ACTIVE, "active share screen"},
};

}  // namespace

std::vector<std::string> MissingParts(const vela::Examination& examination) {
    std::vector<std::string> names;
    for (const NamedUsage& part : kParts) {
        const std::wstring key =
            vela::MakeCapsKey(static_cast<std::uint32_t>(part.type), part.usage);
        if (examination.buttonCapsMap.count(key) + examination.valueCapsMap.count(key) != 0) {
            continue;
        }
        names.push_back(std::string(part.name) + " (" +
                        (part.type == HidP_Input ? "input " : "output ") + Hex(part.usage) + ")");
    }
    return names;
}

}  // namespace velactl
