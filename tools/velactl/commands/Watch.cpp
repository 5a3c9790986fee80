// velactl watch
#include <map>

#include "tools/velactl/Command.h"
#include "tools/velactl/EventQueue.h"
#include "tools/velactl/Meeting.h"
#include "tools/velactl/StopSignal.h"

namespace velactl {
namespace {

struct WatchOptions {
    bool hostSetsLights = false;
    bool recovers = false;
    double seconds = 0;  // 0: until Ctrl+C
};

// "2026-05-06 17:42:10.123  press   camera, light to be on"
std::string Line(const Json& event) {
    const auto text = [&](const char* name) { return event.at(name).get<std::string>(); };
    const std::map<std::string, std::function<std::string()>> rests{
        {"press",
         [&] { return "press   " + text("button") + ", light to be " + text("newLight"); }},
        {"status", [&] { return "status  " + text("status"); }},
        {"found", [] { return "found   the touchpad is open"; }},
        {"lost", [] { return "lost    the touchpad is gone"; }},
        {"held", [] { return "held    by another process"; }}};
    return text("time") + "  " + rests.at(text("event"))() + '\n';
}

// Prints the events until the user stops the program, or its time is over.
void PrintEvents(Context& context, const WatchOptions& options, const StopSignal& stop,
                 EventQueue& events) {
    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::milliseconds(static_cast<std::int64_t>(options.seconds * 1000));
    for (;;) {
        while (const auto event = events.Take()) context.Print(*event, Line(*event));
        auto time = kForEver;
        if (options.seconds > 0) {
            time = std::chrono::duration_cast<std::chrono::milliseconds>(
                end - std::chrono::steady_clock::now());
            if (time.count() <= 0) return;
        }
        if (stop.WaitFor(time, events.Arrival()) == StopSignal::kStopped) return;
    }
}

ExitCode Watch(Context& context, const WatchOptions& options) {
    const StopSignal stop;
    EventQueue events;
    const auto activation = options.hostSetsLights ? VELA_ACTIVE_HOST_SETS_LIGHTS : VELA_ACTIVE;
    if (options.recovers) {
        vela_agent::Watch watch(context.Library(), events.WatchHandlers());
        watch.Change([&](vela_agent::Settings& settings) { LightAll(settings, activation); });
        PrintEvents(context, options, stop, events);
    } else {
        vela_agent::Session session(context.Library(), events.Handlers());
        LightAll(session, activation);
        PrintEvents(context, options, stop, events);
    }
    return kDone;
}

}  // namespace

Run DeclareWatch(CLI::App& arguments) {
    const auto options = std::make_shared<WatchOptions>();
    arguments.add_flag("--host-sets-lights", options->hostSetsLights,
                       "Presses leave the camera's and the microphone's light as it is");
    arguments.add_flag("--recover", options->recovers,
                       "Wait for the touchpad, and open it again whenever it comes back");
    arguments.add_option("--seconds", options->seconds, "End by itself after this time")
        ->check(CLI::Range(0.1, 86400.0).description(""))
        ->type_name("SECONDS");
    return [options](Context& context) { return Watch(context, *options); };
}

}  // namespace velactl
