#include "tools/velactl/StopSignal.h"

namespace velactl {
namespace {

constexpr DWORD kTimeToClose = 10000;

HANDLE StopEvent() {
    static const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return event;
}

// The system calls this on a thread of its own. When the console closes, the process ends as soon
// as this returns, so it waits for the main thread to leave by itself.
BOOL WINAPI OnControl(DWORD kind) {
    SetEvent(StopEvent());
    if (kind != CTRL_C_EVENT && kind != CTRL_BREAK_EVENT) Sleep(kTimeToClose);
    return TRUE;
}

DWORD Milliseconds(std::chrono::milliseconds time) {
    return time == kForEver ? INFINITE : static_cast<DWORD>(time.count());
}

}  // namespace

StopSignal::StopSignal() { SetConsoleCtrlHandler(OnControl, TRUE); }

bool StopSignal::WaitFor(std::chrono::milliseconds time) const {
    return WaitForSingleObject(StopEvent(), Milliseconds(time)) == WAIT_OBJECT_0;
}

StopSignal::Outcome StopSignal::WaitFor(std::chrono::milliseconds time, HANDLE event) const {
    const HANDLE events[] = {StopEvent(), event};
    switch (WaitForMultipleObjects(2, events, FALSE, Milliseconds(time))) {
        case WAIT_OBJECT_0:
            return kStopped;
        case WAIT_OBJECT_0 + 1:
            return kSignalled;
        default:
            return kTimeOver;
    }
}

}  // namespace velactl
