// velactl status
#include "tools/velactl/Command.h"
#include "tools/velactl/EventQueue.h"
#include "tools/velactl/Firmware.h"

namespace velactl {
namespace {

void AddOpenTouchpad(const vela_agent::Library& library, Json& status) {
    EventQueue events;
    vela_agent::Session session(library, events.Handlers());
    status["touchpad"] = "free";
    status["detachable"] = session.IsDetachable();
    status["biDirectionSwipe"] = session.SupportsBiDirectionSwipe();
    status["clickMode"] = session.IsClickModeOn();
    const FirmwareState state = RequestFirmwareState(session, events);
    status["state"] = state.status;
    status["firmware"] = state.Text();
}

void AddTouchpad(const vela_agent::Library& library, Json& status) {
    if (library.IsVelaPresent() == 0) {
        status["touchpad"] = "absent";
        return;
    }
    try {
        AddOpenTouchpad(library, status);
    } catch (const vela_agent::OpenError& error) {
        status["touchpad"] = error.Result() == VELA_INIT_HELD_BY_OTHER ? "held by another process"
                                                                       : "cannot be opened";
    }
}

void AddHaptics(const vela_agent::Library& library, Json& status) {
    if (library.IsHapticTPPresent() == 0) {
        status["hapticTouchpad"] = "absent";
        return;
    }
    try {
        const vela_agent::Haptics haptics(library);
        status["hapticTouchpad"] = "present";
        status["hapticLevel"] = haptics.Level();
    } catch (const vela_agent::OpenError&) {
        status["hapticTouchpad"] = "cannot be opened";
    }
}

ExitCode PrintStatus(Context& context) {
    Json status;
    AddTouchpad(context.Library(), status);
    AddHaptics(context.Library(), status);
    context.Print(status);
    return kDone;
}

}  // namespace

Run DeclareStatus(CLI::App&) { return PrintStatus; }

}  // namespace velactl
