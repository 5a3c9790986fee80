// Runs storm after storm. At rest after each one it compares the lights and takes the figures.
//
//   soak_meeting [SECONDS [detachable]]
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "testing/kit/WaitUntil.h"
#include "testing/soak/Figures.h"
#include "testing/soak/LightRequests.h"
#include "testing/soak/LivelyCallbacks.h"
#include "testing/soak/ProcessFigures.h"
#include "testing/soak/Storm.h"

namespace {

using namespace soak;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kStorm{3000};
// Covers the two events of a session, and what a storm's host threads leave in the runtime.
constexpr std::int64_t kHeapOfASession = 8192;
// MinGW's locks keep an event from their first wait on; agent and host have at most this many.
constexpr std::int64_t kLocks = 24;

struct Level {
    std::map<std::string, std::int64_t> handles;
    std::int64_t threads = 0;
    std::int64_t heap = 0;
    std::int64_t sessions = 0;
    std::int64_t scans = 0;
    std::int64_t hapticScans = 0;
};

class Meeting {
 public:
    Meeting(milliseconds duration, const TouchpadLayout& layout, const std::string& name)
        : duration_(duration),
          layout_(layout),
          touchpad_(SoakTouchpad::Make(layout)),
          figures_(name) {
        // The process keeps the first product string that it reads: it must be this touchpad's.
        owner_.Open(false);
        agent_.IsDetachable();
        owner_.Close();
        now_.threads = ThreadCount();
        heapOfAScan_ = MeasureScan([this] { owner_.IsPresent(); });
        heapOfAHapticScan_ = MeasureScan([this] { agent_.IsHapticTPPresent(); });
    }

    int Run() {
        const auto begin = steady_clock::now();
        do {
            storm_.Run(kStorm);
            const std::string difference =
                CompareLights(agent_, *touchpad_, layout_, owner_, random_);
            ++comparisons_;
            if (!difference.empty() && different_.empty()) different_ = difference;
            Rest();
            PrintProgress(steady_clock::now() - begin);
            // Figures that grow to a fixed size reach it within two storms.
            if (comparisons_ <= 2) first_ = now_;
        } while (steady_clock::now() - begin < duration_);
        JudgeAll();
        figures_.Print();
        return figures_.ExitCode();
    }

 private:
    // Returns the heap bytes that a scan of the devices leaves allocated.
    std::int64_t MeasureScan(const std::function<void()>& scan) {
        constexpr int kScans = 16;
        scan();
        const std::int64_t before = HeapInUse();
        for (int i = 0; i < kScans; ++i) scan();
        return (HeapInUse() - before) / kScans;
    }

    void Rest() {
        if (!owner_.CloseAtRest()) ++leftALight_;
        agent_.UnInitHapticTP();
        touchpad_->ForgetWritten();
        const std::int64_t threads = ThreadsAtRest();
        now_ = {OpenHandles(),     threads,        HeapInUse(),
                owner_.Sessions(), owner_.Scans(), HapticScans()};
    }

    // Closing stops the heartbeat of a detachable touchpad without waiting for it. Threads that are
    // still there after the time limit are counted.
    std::int64_t ThreadsAtRest() const {
        std::int64_t threads = 0;
        kit::WaitUntil([&] {
            threads = ThreadCount();
            return threads <= now_.threads;
        });
        return threads;
    }

    void PrintProgress(steady_clock::duration elapsed) {
        const auto text = [](const char* name, std::int64_t value) {
            return std::string(name) + " " + std::to_string(value) + "  ";
        };
        using std::chrono::duration_cast;
        PrintLine(text("seconds", duration_cast<std::chrono::seconds>(elapsed).count()) +
                  text("calls", storm_.Figures().calls) +
                  text("presses", storm_.Figures().presses) +
                  text("pulled", storm_.Figures().pullings) + text("sessions", now_.sessions) +
                  text("log lines", log_.Figures().lines) + text("files", now_.handles["File"]) +
                  text("events", now_.handles["Event"]) + text("threads", now_.threads) +
                  text("heap KiB", now_.heap / 1024));
    }

    void JudgeAll() {
        const StormFigures& storm = storm_.Figures();
        figures_.Judge("calls by host threads", storm.calls, storm.calls > 0);
        figures_.Note("input reports sent", storm.presses);
        figures_.Judge("presses told", PressesReported(), PressesReported() > 0);
        figures_.Judge("statuses told", StatusesReported(), StatusesReported() > 0);
        figures_.Note("times unplugged", storm.pullings);
        figures_.Note("sessions", owner_.Sessions());
        figures_.Judge("longest closing, ms", owner_.LongestClosing().count(),
                       owner_.LongestClosing() <= kLongestClosing);
        figures_.Judge("comparisons of the lights", comparisons_, different_.empty());
        figures_.Judge("closings that left a light on", leftALight_, leftALight_ == 0);
        const LogFigures& log = log_.Figures();
        figures_.Note("logger started and stopped", log.segments);
        figures_.Judge("log files moved away", log.rotations,
                       log.segments < 4 || log.rotations > 0);
        figures_.Judge("log lines read", log.lines, log.wrong.empty());
        figures_.Note("of them in a thread's known order", log.marks);
        JudgeLevels();
        if (!different_.empty()) PrintLine("lights: " + different_);
        if (!log.wrong.empty()) PrintLine("log: " + log.wrong);
    }

    // A session leaves its two events and one handle of the device's mutex open; IsVelaPresent
    // without a session may leave another handle of the mutex.
    void JudgeLevels() {
        const std::int64_t sessions = now_.sessions - first_.sessions;
        const auto grown = [this](const char* kind) {
            return now_.handles[kind] - first_.handles[kind];
        };
        figures_.Judge("file handles more", grown("File"), grown("File") <= 0);
        const std::int64_t events = grown("Event") - 2 * sessions;
        figures_.Judge("event handles more, less two a session", events, events <= kLocks);
        figures_.Judge("mutex handles more", grown("Mutant"), grown("Mutant") <= 4 * sessions);
        figures_.Judge("threads more", now_.threads - first_.threads,
                       now_.threads <= first_.threads);
        figures_.Note("heap that a scan leaves, bytes", heapOfAScan_);
        figures_.Note("heap that a haptic scan leaves, bytes", heapOfAHapticScan_);
        const std::int64_t beyondScans =
            now_.heap - first_.heap - heapOfAScan_ * (now_.scans - first_.scans) -
            heapOfAHapticScan_ * (now_.hapticScans - first_.hapticScans);
        const std::int64_t aSession = beyondScans / std::max<std::int64_t>(sessions, 1);
        figures_.Judge("heap more beyond that, bytes a session", aSession,
                       aSession < kHeapOfASession);
    }

    const milliseconds duration_;
    std::int64_t heapOfAScan_ = 0;
    std::int64_t heapOfAHapticScan_ = 0;
    const TouchpadLayout layout_;
    Agent agent_;
    std::unique_ptr<SoakTouchpad> touchpad_;
    SessionOwner owner_{agent_, *touchpad_};
    LogSegments log_{agent_};
    Storm storm_{agent_, *touchpad_, owner_, log_};
    Random random_{std::random_device{}()};
    Figures figures_;
    Level first_;
    Level now_;
    std::int64_t comparisons_ = 0;
    std::string different_;
    std::int64_t leftALight_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    const milliseconds duration(1000L * (argc > 1 ? std::atol(argv[1]) : 60));
    const bool detachable = argc > 2;
    TouchpadLayout layout;
    if (detachable) layout.productString = L"Vela Detachable Touchpad";
    int exitCode = 1;
    try {
        exitCode = Meeting(duration, layout, detachable ? "meeting, detachable" : "meeting").Run();
    } catch (const std::exception& error) {
        PrintLine(std::string("ended by: ") + error.what());
    }
    if (detachable) LeaveAtOnce(exitCode);
    return exitCode;
}
