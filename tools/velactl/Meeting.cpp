#include "tools/velactl/Meeting.h"

#include "tools/velactl/Names.h"
#include "tools/velactl/StopSignal.h"

namespace velactl {

void LightAll(vela_agent::Session& session, std::uint32_t activation) {
    bool done = session.Activate(activation) && session.EnableFeature(true) &&
                session.EnableChatBreathing(true);
    for (const auto& [name, button] : Buttons()) {
        done = done && session.EnableButton(button, true) && session.SetVisible(button, true);
    }
    if (!done) throw Failure("the touchpad was closed while its buttons were lit");
}

void LightAll(vela_agent::Settings& settings, std::uint32_t activation) {
    settings.activation = activation;
    settings.feature = true;
    settings.chatBreathingEnabled = true;
    for (vela_agent::ButtonSettings& button : settings.buttons) button = {true, true, false};
}

Hold::Hold(CLI::App& arguments) : seconds_(std::make_shared<double>(5)) {
    arguments
        .add_option("--hold", *seconds_,
                    "Time until the touchpad is closed, which darkens it; Ctrl+C ends it too")
        ->check(CLI::Range(0.0, 86400.0).description(""))
        ->type_name("SECONDS")
        ->capture_default_str();
}

ExitCode Hold::Show(Context& context, Json change,
                    const std::function<bool(vela_agent::Session&)>& make) const {
    const StopSignal stop;
    vela_agent::Session session(context.Library());
    // Activates without the library's own reaction to presses, so that the lights stay as set.
    LightAll(session, VELA_ACTIVE_HOST_SETS_LIGHTS);
    const bool done = make(session);
    change["done"] = done;
    context.Print(change);
    if (!done) return kFailed;
    stop.WaitFor(std::chrono::milliseconds(static_cast<std::int64_t>(*seconds_ * 1000)));
    return kDone;
}

}  // namespace velactl
