#include "testing/recording/Meeting.h"

#include <algorithm>

#include "testing/kit/HostCallbacks.h"
#include "testing/kit/WaitUntil.h"
#include "testing/recording/InputReports.h"
#include "touchpad/TouchpadUsages.h"

namespace recording {
namespace {

using kit::HostCallbacks;
using kit::WaitUntil;

constexpr VelaButton kButtons[] = {VELA_BUTTON_CAMERA, VELA_BUTTON_MICROPHONE, VELA_BUTTON_CHAT,
                                   VELA_BUTTON_SHARE_SCREEN};
// The camera's and the microphone's lights change with a press.
constexpr USAGE kPressed[] = {vela::USAGE_CAMERA_BUTTON, vela::USAGE_MIC_BUTTON,
                              vela::USAGE_CHAT_BUTTON, vela::USAGE_SHARE_SCREEN_BUTTON};
constexpr std::uint32_t kFirstBrightness = 101;

// Reports are written on a thread of the agent, in the order in which they were queued. Each step
// ends with a change that writes exactly one report, and waits for it.
class Meeting {
 public:
    Meeting(const Agent& agent, Touchpad& touchpad, const std::wstring& path)
        : agent_(agent), touchpad_(touchpad), inputs_(path) {}

    Json Hold() {
        HostCallbacks::Reset();
        Json json = {{"init", agent_.Init()}};
        if (json["init"] != VELA_INIT_OPEN) return json;
        agent_.SetVelaButtonPressCallback(kit::OnButtonPress);
        agent_.SetVelaStatusChangeCallback(kit::OnStatusChange);
        Light();
        for (const USAGE usage : kPressed) Press(usage, json["inputs"]);
        agent_.UnInit();
        json["outputs"] = Outputs();
        json["notifications"] = HostCallbacks::Calls();
        return json;
    }

 private:
    void Light() {
        agent_.EnableFeature(1);
        agent_.Activate(VELA_ACTIVE);
        for (const VelaButton button : kButtons) {
            agent_.EnableSingleButton(button, 1);
            agent_.SetButtonVisible(button, 1);
        }
        for (const VelaButton button : kButtons) agent_.SetButtonLight(button, 1);
        WaitForLevel();
    }

    void Press(USAGE usage, Json& sent) {
        const Bytes report = inputs_.With(vela::kTouchpadUsagePage, usage);
        if (report.empty()) return;
        const std::size_t calls = HostCallbacks::Calls().size();
        const std::size_t outputs = touchpad_.Outputs().size();
        sent.push_back(Hex(report));
        touchpad_.SendInput(report);
        HostCallbacks::WaitForCalls(calls + 1);
        if (usage == vela::USAGE_CAMERA_BUTTON || usage == vela::USAGE_MIC_BUTTON) {
            WaitUntil([&] { return touchpad_.Outputs().size() > outputs; });
        }
        WaitForLevel();
    }

    // The dark report of the end is written once more when another thread wrote meanwhile: it
    // counts as one.
    Json Outputs() {
        Json outputs = Json::array();
        for (const Bytes& report : touchpad_.Outputs()) outputs.push_back(Hex(report));
        while (outputs.size() > 1 && outputs[outputs.size() - 1] == outputs[outputs.size() - 2]) {
            outputs.erase(outputs.size() - 1);
        }
        return outputs;
    }

    // Sets a new brightness and waits for the report with it.
    void WaitForLevel() {
        const auto level = static_cast<std::uint8_t>(brightness_);
        agent_.SetVelaBrightness(brightness_++);
        WaitUntil([&] {
            const std::vector<Bytes> outputs = touchpad_.Outputs();
            return !outputs.empty() && std::find(outputs.back().begin(), outputs.back().end(),
                                                 level) != outputs.back().end();
        });
    }

    const Agent& agent_;
    Touchpad& touchpad_;
    InputReports inputs_;
    std::uint32_t brightness_ = kFirstBrightness;
};

}  // namespace

Json HoldMeeting(const Agent& agent, Touchpad& touchpad, const std::wstring& path) {
    return Meeting(agent, touchpad, path).Hold();
}

Json SetHapticLevel(const Agent& agent, Touchpad& touchpad, std::uint8_t reportId) {
    constexpr std::uint32_t kLevel = 80;
    Json json = {{"init", agent.InitHapticTP()},
                 {"set", agent.SetHapticTPIntensityLevel(kLevel)},
                 {"level", agent.GetHapticTPIntensityLevel()},
                 {"feature", Hex(touchpad.Feature(reportId))}};
    agent.UnInitHapticTP();
    return json;
}

}  // namespace recording
