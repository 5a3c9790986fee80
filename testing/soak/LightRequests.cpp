#include "testing/soak/LightRequests.h"

#include <cstdio>

#include "testing/kit/SessionModel.h"
#include "testing/soak/LivelyCallbacks.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"

namespace soak {
namespace {

using namespace virtual_touchpad::events;
using kit::SessionModel;

// Bytes after these are padding, which the comparison ignores.
constexpr std::size_t kLightBytes = virtual_touchpad::kActiveBitsOffset + 1;

std::string Hex(const Bytes& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02x ", byte);
        text += digits;
    }
    return text;
}

// Makes every request to the agent and to the model, and compares the lights.
class ComparedSession {
 public:
    ComparedSession(const Agent& agent, SoakTouchpad& touchpad, const TouchpadLayout& layout)
        : agent_(agent), touchpad_(touchpad), model_(layout) {
        model_.Init();
    }

    void Send(std::uint16_t usage) {
        touchpad_.Send(static_cast<std::uint8_t>(1U << (usage - kSync)), 0);
        model_.Receive(virtual_touchpad::kButtonReportId, {usage}, 0);
    }
    // Sends a usage and then a press, whose callback proves that the usage was handled. Returns
    // false when the press is not reported.
    bool SendAndWait(std::uint16_t usage) {
        const std::int64_t reported = PressesReported(VELA_BUTTON_SHARE_SCREEN);
        Send(usage);
        Send(kShareScreenButton);
        return WaitForPresses(VELA_BUTTON_SHARE_SCREEN, reported + 1);
    }
    void Enable(std::uint32_t button, bool enable) {
        agent_.EnableSingleButton(button, enable);
        model_.EnableSingleButton(button, enable);
    }
    void Show(std::uint32_t button, bool visible) {
        agent_.SetButtonVisible(button, visible);
        model_.SetButtonVisible(button, visible);
    }
    void Light(std::uint32_t button, bool on) {
        agent_.SetButtonLight(button, on);
        model_.SetButtonLight(button, on);
    }
    void Breathe(std::uint32_t button, bool on) {
        agent_.SetButtonBreathing(button, on);
        model_.SetButtonBreathing(button, on);
    }
    void AllowBreathing(bool allow) {
        agent_.EnableChatBreathing(allow);
        model_.EnableChatBreathing(allow);
    }
    void Brightness(std::uint32_t level) {
        agent_.SetVelaBrightness(level);
        model_.SetBrightness(level);
    }
    void Feature(bool on) {
        agent_.EnableFeature(on);
        model_.EnableFeature(on);
    }
    void Activate(std::uint32_t activation) {
        agent_.Activate(activation);
        model_.Activate(activation);
    }

    // Remembers the lights requested now, which differ from all reports of the storm.
    void NoteKnown() {
        known_ = model_.TakeReports().back();
        known_.resize(kLightBytes);
    }
    std::string Compare() {
        const std::vector<Bytes> reports = model_.TakeReports();
        Bytes expected = reports.empty() ? known_ : reports.back();
        if (agent_.UpdateVelaState() == 0) return "the state request was refused";
        // The storm's reports and state requests may still come before the known lights.
        std::optional<Bytes> lights = touchpad_.LightsBeforeRequest(known_);
        if (!lights) return "no lights " + Hex(known_) + "and no state request behind them";
        expected.resize(kLightBytes);
        lights->resize(kLightBytes);
        if (*lights == expected) return "";
        return "lights " + Hex(*lights) + "instead of " + Hex(expected);
    }

 private:
    const Agent& agent_;
    SoakTouchpad& touchpad_;
    SessionModel model_;
    Bytes known_;
};

// Sets a state that does not depend on earlier calls. The last step forces its report, which equals
// the one that the session compares the next with.
void MakeKnown(ComparedSession& session, Random& random) {
    session.Activate(VELA_DEACTIVATED);
    for (std::uint32_t button = 0; button < 4; ++button) {
        session.Enable(button, true);
        session.Show(button, true);
        session.Light(button, Below(random, 2) != 0);
    }
    session.AllowBreathing(false);
    session.Breathe(VELA_BUTTON_CHAT, false);
    session.Brightness(kBrighterThanStorms + Below(random, 256 - kBrighterThanStorms));
    session.Feature(true);
    session.Activate(Below(random, 4) == 0 ? VELA_ACTIVE_HOST_SETS_LIGHTS : VELA_ACTIVE);
    session.Show(VELA_BUTTON_CAMERA, true);
    session.Breathe(VELA_BUTTON_CHAT, false);
    session.NoteKnown();
}

// Returns false when a press is not reported.
bool MakeRandomRequest(ComparedSession& session, Random& random) {
    const std::uint32_t button = Below(random, 3);  // share screen stays, to wait for its presses
    const bool flag = Below(random, 2) != 0;
    switch (Below(random, 10)) {
        case 0:
            session.Enable(button, flag);
            return true;
        case 1:
            session.Show(button, flag);
            return true;
        case 2:
            session.Light(button, flag);
            return true;
        case 3:
            session.AllowBreathing(flag);
            return true;
        case 4:
            session.Breathe(VELA_BUTTON_CHAT, flag);
            return true;
        case 5:
            session.Brightness(Below(random, 256));
            return true;
        case 6:
            session.Feature(Below(random, 4) != 0);
            return true;
        case 7:
            session.Activate(Below(random, 4) == 0 ? VELA_SUSPENDED : VELA_ACTIVE);
            return true;
        default:
            return session.SendAndWait(flag ? kCameraButton : kMicrophoneButton);
    }
}

}  // namespace

std::string CompareLights(const Agent& agent, SoakTouchpad& touchpad, const TouchpadLayout& layout,
                          SessionOwner& owner, Random& random) {
    if (!owner.Reaches()) {
        owner.Close();
        owner.Open(false);
        if (!owner.Reaches()) return "a new session could not be opened";
    }
    SetCallbacks(agent, false);
    touchpad.WaitUntilRead();
    touchpad.ForgetWritten();

    ComparedSession session(agent, touchpad, layout);
    session.Enable(VELA_BUTTON_SHARE_SCREEN, true);
    session.Send(kEnabled);
    if (!session.SendAndWait(kSync)) return "presses are told no more";
    MakeKnown(session, random);
    for (int request = 0; request < 30; ++request) {
        if (!MakeRandomRequest(session, random)) return "a press was not told";
    }
    return session.Compare();
}

}  // namespace soak
