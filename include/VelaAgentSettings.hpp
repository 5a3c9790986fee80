// What a host wants of the touchpad, and how it is set on a session: at once, or only what has
// changed. For VelaAgentWatch.hpp, which includes it.
#ifndef VELA_AGENT_SETTINGS_HPP
#define VELA_AGENT_SETTINGS_HPP

#include "VelaAgent.hpp"

#include <array>

namespace vela_agent {

// What the host wants of one button; see EnableSingleButton, SetButtonVisible and SetButtonLight.
struct ButtonSettings {
    bool enabled = false;
    bool visible = false;
    bool light = false;

    friend bool operator==(const ButtonSettings& a, const ButtonSettings& b) {
        return a.enabled == b.enabled && a.visible == b.visible && a.light == b.light;
    }
};

// What the host wants of the touchpad, at first what a session begins with. The click mode is not
// among it, as the device keeps that itself.
struct Settings {
    std::uint32_t activation = VELA_DEACTIVATED;
    bool feature = false;
    std::uint8_t brightness = 3;
    bool chatBreathingEnabled = false;
    bool chatBreathing = false;
    std::array<ButtonSettings, 4> buttons;  // by VelaButton

    friend bool operator==(const Settings& a, const Settings& b) {
        return a.activation == b.activation && a.feature == b.feature &&
               a.brightness == b.brightness && a.chatBreathingEnabled == b.chatBreathingEnabled &&
               a.chatBreathing == b.chatBreathing && a.buttons == b.buttons;
    }
};

namespace detail {

// Sets on the session what differs.
inline void Apply(Session& session, const Settings& old, const Settings& now) {
    // A deactivation hides the buttons and ends the breathing, and what follows a suspension brings
    // back the buttons from before it: all of them are set again then.
    const bool activates = old.activation != now.activation;
    if (activates) session.Activate(now.activation);
    if (old.brightness != now.brightness) session.SetBrightness(now.brightness);
    for (std::size_t i = 0; i < now.buttons.size(); ++i) {
        const auto button = static_cast<VelaButton>(i);
        const ButtonSettings& before = old.buttons[i];
        const ButtonSettings& after = now.buttons[i];
        if (activates || before.enabled != after.enabled) {
            session.EnableButton(button, after.enabled);
        }
        if (activates || before.visible != after.visible) session.SetVisible(button, after.visible);
        if (activates || before.light != after.light) session.SetLight(button, after.light);
    }
    const bool breathes = activates || old.chatBreathingEnabled != now.chatBreathingEnabled;
    if (breathes) session.EnableChatBreathing(now.chatBreathingEnabled);
    const bool switches = old.feature != now.feature;
    if (switches) session.EnableFeature(now.feature);
    // Switching the feature off ends the breathing, and only setting it stops the light.
    if (breathes || switches || old.chatBreathing != now.chatBreathing) {
        session.SetChatBreathing(now.chatBreathing);
    }
    session.WriteLights();
}

// Sets on a session that was just opened all that the host wants.
inline void Replay(Session& session, const Settings& now) {
    Settings dark = now;
    dark.feature = false;
    dark.chatBreathing = false;
    session.SetBrightness(now.brightness);  // the library keeps it from session to session
    Apply(session, Settings(), dark);
    // The library also keeps the disabling gesture, which the touchpad has forgotten. Ends it, and
    // requests the state of a touchpad that has not.
    session.EnableFeature(false);
    session.RequestState();
    Apply(session, dark, now);
}

}  // namespace detail

}  // namespace vela_agent

#endif
