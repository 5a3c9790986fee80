// Unplugs the touchpad of a watch a thousand times and plugs it in again, while the machine
// resumes, the settings change or another program takes it. Each time it must show the settings.
//
//   soak_watch [CYCLES [detachable]]
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iterator>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>

#include "testing/kit/SettingsLights.h"
#include "testing/kit/WaitUntil.h"
#include "testing/kit/windows/FirstArrival.h"
#include "testing/soak/Figures.h"
#include "testing/soak/ProcessFigures.h"
#include "testing/soak/RandomCalls.h"
#include "testing/soak/SoakTouchpad.h"
#include "testing/soak/windows/Growth.h"
#include "testing/soak/windows/OtherProgram.h"
#include "testing/soak/windows/WatchHost.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using namespace soak;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Covers the two events of a session, and the preparsed data that its scan leaves.
constexpr std::int64_t kHeapOfASession = 2048;
// MinGW's locks keep an event from their first wait on; agent and host have at most this many.
constexpr std::int64_t kLocks = 24;

// What the process holds.
struct Level {
    std::map<std::string, std::int64_t> handles = OpenHandles();
    std::int64_t threads = ThreadCount();
    std::int64_t heap = HeapInUse();
    std::int64_t sessions = WatchHost::Sessions();
};

// Returns the bytes that the system keeps in this process when it plugs a device in and out: none
// on Wine 8, about 7,000 on Wine 10.
std::int64_t HeapOfPlugging() {
    virtual_touchpad::UnplugAll();
    const auto plug = [](std::int64_t) {
        virtual_touchpad::Plug(TouchpadLayout{});
        virtual_touchpad::Unplug();
    };
    return MeasureGrowth(20, plug).heap;
}

class Replugging {
 public:
    Replugging(std::int64_t cycles, bool detachable)
        : cycles_(cycles),
          heapOfPlugging_(HeapOfPlugging()),
          figures_(detachable ? "watch, detachable" : "watch") {
        if (detachable) layout_.productString = L"Vela Detachable Touchpad";
        virtual_touchpad::UnplugAll();
        const bool isOpen = kit::PlugUntilNoticed([this] { PlugIn(); }, [this] { Unplug(); },
                                                  [this] { return host_.IsOpen(); });
        if (!isOpen) throw std::runtime_error("the watch does not open the touchpad");
    }

    int Run() {
        // What stays loaded is loaded by the first cycles.
        const std::int64_t warmUp = std::max<std::int64_t>(cycles_ / 10, std::size(kSituations));
        std::optional<Level> first;
        ChangeSettings();
        for (std::int64_t cycle = 0; cycle < cycles_; ++cycle) {
            if (cycle == warmUp) first.emplace();
            RunCycle(kSituations[static_cast<std::size_t>(cycle) % std::size(kSituations)]);
            if ((cycle + 1) % 50 == 0) PrintProgress(cycle + 1);
        }
        if (first) JudgeLevels(*first);
        JudgeEnd();
        JudgeLights();
        figures_.Print();
        return figures_.ExitCode();
    }

 private:
    struct Situation {
        const char* name;
        void (Replugging::*happen)();
    };
    static const Situation kSituations[8];

    // --- the situations ---
    void LeaveAndReturn() {
        Leave();
        PlugIn();
    }
    void ReturnAtOnce() {
        Unplug();
        PlugIn();
    }
    void ChangeWhileAway() {
        Leave();
        ChangeSettings();
        PlugIn();
    }
    void ChangeAsItArrives() {
        ReturnAtOnce();
        ChangeSettings();
    }
    void ResumeWhileAway() {
        Leave();
        Resume();
        PlugIn();
    }
    void ResumeAsItArrives() {
        ReturnAtOnce();
        Resume();
    }
    void ResumeWithIt() {
        since_ = touchpad_->Device().LastSequence();
        Resume();
    }
    // The other program has it until the host was notified of that.
    void ReturnToAnotherProgram() {
        Leave();
        OtherProgram other;
        const std::int64_t before = host_.TimesHeld();
        PlugIn();
        kit::WaitUntil([&] { return host_.TimesHeld() > before || IsRight(); });
        if (other.End()) ++taken_;
    }

    void Unplug() {
        touchpad_.reset();
        virtual_touchpad::Unplug();
    }
    void Leave() {
        Unplug();
        kit::WaitUntil([&] { return !host_.IsOpen(); });
    }
    void PlugIn() {
        virtual_touchpad::Plug(layout_);
        touchpad_.emplace();
        since_ = 0;
    }
    void ChangeSettings() {
        settings_.activation = Below(random_, 4) == 0 ? VELA_ACTIVE_HOST_SETS_LIGHTS : VELA_ACTIVE;
        settings_.feature = true;
        settings_.brightness = static_cast<std::uint8_t>(settings_.brightness % 255 + 1);
        settings_.chatBreathingEnabled = Below(random_, 2) != 0;
        settings_.chatBreathing = Below(random_, 2) != 0;
        for (vela_agent::ButtonSettings& button : settings_.buttons) {
            button = {Below(random_, 4) != 0, Below(random_, 4) != 0, Below(random_, 2) != 0};
        }
        // One button is lit, so a dark touchpad is always wrong.
        vela_agent::ButtonSettings& camera = settings_.buttons[VELA_BUTTON_CAMERA];
        camera.enabled = camera.visible = true;
        host_.Set(settings_);
    }
    // With a touchpad the watch opens it once more.
    void Resume() {
        const std::int64_t before = WatchHost::Scans();
        host_.Resume();
        if (touchpad_) kit::WaitUntil([&] { return WatchHost::Scans() > before; });
    }

    // --- the comparison ---
    Bytes LastLights() const {
        const auto reports = touchpad_->Device().OutputReports(since_);
        const auto last =
            std::find_if(reports.rbegin(), reports.rend(), virtual_touchpad::IsLightReport);
        return last == reports.rend() ? Bytes() : last->bytes;
    }
    bool IsRight() const {
        return host_.IsOpen() && kit::ShowsSettings(LastLights(), settings_, layout_);
    }
    void RunCycle(const Situation& situation) {
        (this->*situation.happen)();
        const auto begin = steady_clock::now();
        const bool isRight = kit::WaitUntil([&] { return IsRight(); });
        const auto took = std::chrono::duration_cast<milliseconds>(steady_clock::now() - begin);
        longest_ = (std::max)(longest_, took);
        if (isRight) return;
        const Bytes lights = LastLights();
        ++(lights.empty() || IsDark(lights) ? dark_ : wrong_);
        PrintLine(std::string(situation.name) + ": wrong, " +
                  (host_.IsOpen() ? "open" : "not open"));
    }

    // --- the figures ---
    void PrintProgress(std::int64_t cycles) const {
        const Level now;
        PrintLine("cycles " + std::to_string(cycles) + "  sessions " +
                  std::to_string(now.sessions) + "  dark " + std::to_string(dark_) + "  wrong " +
                  std::to_string(wrong_) + "  threads " + std::to_string(now.threads) +
                  "  heap KiB " + std::to_string(now.heap / 1024));
    }
    void JudgeLights() {
        figures_.Note("cycles, an eighth of each situation", cycles_);
        figures_.Note("sessions", WatchHost::Sessions());
        figures_.Note("longest until lit once plugged in, ms", longest_.count());
        figures_.Judge("touchpads that stayed dark", dark_, dark_ == 0);
        figures_.Judge("touchpads with other lights", wrong_, wrong_ == 0);
        figures_.Judge("taken by the other program", taken_, taken_ > 0);
        figures_.Judge("notified of that", host_.TimesHeld(), host_.TimesHeld() >= taken_);
    }
    void JudgeLevels(const Level& first) {
        // A session's threads may still be ending.
        kit::WaitUntil([&] { return ThreadCount() <= first.threads; });
        Level now;
        const std::int64_t sessions = now.sessions - first.sessions;
        std::int64_t events = -2 * sessions;
        std::int64_t others = 0;
        for (const auto& [kind, count] : now.handles) {
            const auto before = first.handles.find(kind);
            const std::int64_t more = count - (before == first.handles.end() ? 0 : before->second);
            (kind == "Event" ? events : others) += more;
        }
        figures_.Judge("event handles more, less two a session", events, events <= kLocks);
        figures_.Judge("other handles more", others, others <= 0);
        figures_.Judge("threads more", now.threads - first.threads, now.threads <= first.threads);
        const std::int64_t heap =
            (now.heap - first.heap) / std::max<std::int64_t>(sessions, 1) - heapOfPlugging_;
        figures_.Judge("heap more, bytes a session", heap, heap < kHeapOfASession);
    }
    void JudgeEnd() {
        host_.Stop();
        const bool isDark = kit::WaitUntil([&] { return IsDark(LastLights()); });
        figures_.Judge("dark after the watch's end", isDark ? "yes" : "no", isDark);
    }

    const std::int64_t cycles_;
    const std::int64_t heapOfPlugging_;
    TouchpadLayout layout_;
    Figures figures_;
    std::optional<virtual_touchpad::TouchpadControl> touchpad_;  // while it is plugged in
    std::uint64_t since_ = 0;  // the last report that is not of this cycle
    WatchHost host_;
    Settings settings_;
    Random random_{20261122};
    std::int64_t dark_ = 0;
    std::int64_t wrong_ = 0;
    std::int64_t taken_ = 0;
    milliseconds longest_{0};
};

const Replugging::Situation Replugging::kSituations[8] = {
    {"unplugged and back", &Replugging::LeaveAndReturn},
    {"back at once", &Replugging::ReturnAtOnce},
    {"settings changed while away", &Replugging::ChangeWhileAway},
    {"settings changed as it arrives", &Replugging::ChangeAsItArrives},
    {"resumed while away", &Replugging::ResumeWhileAway},
    {"resumed as it arrives", &Replugging::ResumeAsItArrives},
    {"resumed", &Replugging::ResumeWithIt},
    {"taken by another program", &Replugging::ReturnToAnotherProgram},
};

}  // namespace

int main(int argc, char** argv) {
    if (kit::IsChildProcess(argc, argv)) return kit::PlayChildRole(argv);
    const std::int64_t cycles = argc > 1 ? std::atol(argv[1]) : 1000;
    const bool detachable = argc > 2;
    int exitCode = 1;
    try {
        exitCode = Replugging(cycles, detachable).Run();
    } catch (const std::exception& error) {
        PrintLine(std::string("ended by: ") + error.what());
    }
    virtual_touchpad::UnplugAll();
    LeaveAtOnce(exitCode);
}
