// Measures the way from the touchpad to the host and back: the agent's session and a bare loop of
// the same reads and writes take turns on one virtual touchpad.
#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>

#include "include/VelaAgent.hpp"
#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/Stopwatch.h"
#include "testing/bench/windows/Host.h"
#include "testing/kit/LogFolder.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using namespace virtual_touchpad::events;
using namespace bench;

constexpr int kTurns = 20;
constexpr int kWarmUp = 10;
constexpr int kPresses = 100;
constexpr double kPatience = 5e9;  // nanoseconds
constexpr DWORD kSettling = 3;     // milliseconds

struct Latencies {
    Samples seen;  // until the host has the press
    Samples lit;   // until the device has the light report
};

double NanosecondsOf(std::chrono::steady_clock::time_point time) {
    return std::chrono::duration<double, std::nano>(time.time_since_epoch()).count();
}

double WaitUntilSeen(const Host& host) {
    const double start = Nanoseconds();
    while (host.PressSeen() == 0) {
        if (Nanoseconds() - start > kPatience) throw std::runtime_error("no answer to a press");
        Sleep(1);
    }
    return host.PressSeen();
}

Latencies Presses(virtual_touchpad::TouchpadControl& touchpad, Host& host) {
    Latencies latencies;
    for (int i = 0; i < kWarmUp + kPresses; ++i) {
        const std::uint64_t sequence = touchpad.Device().LastSequence();
        host.Forget();
        const double start = Nanoseconds();
        touchpad.Press(kCameraButton);
        const double seen = WaitUntilSeen(host);
        // A query costs the device as much as a report, and a core: the report, whose time the
        // device notes, has usually arrived before the first one.
        Sleep(kSettling);
        const auto lights =
            touchpad.Device().WaitForOutputs(1, std::chrono::milliseconds(5000), sequence);
        if (lights.empty()) throw std::runtime_error("no report after a press");
        if (i < kWarmUp) continue;
        latencies.seen.Add(seen - start);
        latencies.lit.Add(NanosecondsOf(lights.front().received) - start);
    }
    return latencies;
}

Latencies PressesOnAgent(const kit::AgentDll& agent, virtual_touchpad::TouchpadControl& touchpad) {
    AgentHost host(agent);
    return Presses(touchpad, host);
}

Latencies PressesOnBareHost(const std::wstring& path, WritesOn thread, Queries queries,
                            virtual_touchpad::TouchpadControl& touchpad) {
    BareHost host(path, touchpad, thread, queries);
    return Presses(touchpad, host);
}

// Runs the DLL's logger, when wanted.
class Logging {
 public:
    Logging(const kit::AgentDll& agent, bool wanted) : agent_(wanted ? &agent : nullptr) {
        if (agent_ != nullptr) agent_->InitLogger(folder_.Path().c_str());
    }
    ~Logging() {
        if (agent_ != nullptr) agent_->UnInitLogger();
    }
    Logging(const Logging&) = delete;
    Logging& operator=(const Logging&) = delete;

 private:
    kit::LogFolder folder_;
    const kit::AgentDll* agent_;
};

struct LatencyRow {
    const char* what;
    const wchar_t* product;
    bool logged;
    const char* peer;
    WritesOn peerWritesOn;
    Queries peerQueries;
    Samples Latencies::*latency;
    std::optional<double> target;
};

constexpr char kSeen[] = "Wine: input report to the callback";
constexpr char kLit[] = "Wine: press to the light report";
constexpr char kReads[] = "bare ReadFile loop";
constexpr char kReadsAndWrites[] = "bare read and write loop";
constexpr char kHandsOver[] = "the same, writing on a second thread";
constexpr char kHandsOverAndQueries[] =
    "the same, writing on a second thread, and the same queries";
constexpr WritesOn kOne = WritesOn::TheReader;
constexpr WritesOn kTwo = WritesOn::AThreadOfItsOwn;
constexpr Queries kNone = Queries::None;
constexpr wchar_t kFixed[] = L"Vela Touchpad";
constexpr wchar_t kDetachable[] = L"Vela Detachable Touchpad";
constexpr char kLitDetachable[] = "Wine: press to the light report, detachable touchpad";

constexpr LatencyRow kRows[] = {
    {kSeen, kFixed, false, kReads, kOne, kNone, &Latencies::seen, 1.05},
    {kLit, kFixed, false, kReadsAndWrites, kOne, kNone, &Latencies::lit, 1.15},
    {kLit, kFixed, false, kHandsOver, kTwo, kNone, &Latencies::lit, 1.05},
    {kSeen, kFixed, true, kReads, kOne, kNone, &Latencies::seen, {}},
    {kLit, kFixed, true, kReadsAndWrites, kOne, kNone, &Latencies::lit, 2},
    {kLit, kFixed, true, kHandsOver, kTwo, kNone, &Latencies::lit, {}},
    {kLitDetachable, kDetachable, false, kHandsOverAndQueries, kTwo, Queries::Connection,
     &Latencies::lit, 1.05},
    {kLitDetachable, kDetachable, false, kHandsOver, kTwo, kNone, &Latencies::lit, {}},
};

void PressInTurns(benchmark::State& state, const Row& row, const LatencyRow& wanted) {
    virtual_touchpad::UnplugAll();
    virtual_touchpad::TouchpadLayout layout;
    layout.productString = wanted.product;
    const std::wstring path = virtual_touchpad::Plug(layout);
    virtual_touchpad::TouchpadControl touchpad;
    const kit::AgentDll agent;
    const Logging logging(agent, wanted.logged);
    TakeTurns(
        state, row, [&] { return PressesOnAgent(agent, touchpad).*wanted.latency; },
        [&] {
            return PressesOnBareHost(path, wanted.peerWritesOn, wanted.peerQueries, touchpad).*
                   wanted.latency;
        });
}

}  // namespace

// A process that had a detachable touchpad open is not unloaded.
int main(int argc, char** argv) {
    vela_agent::LeaveProcess(Run(argc, argv, [] {
        for (const LatencyRow& wanted : kRows) {
            const std::string what =
                std::string(wanted.what) + (wanted.logged ? ", logger running" : "");
            Register({what, wanted.peer, kMedians, wanted.target}, kTurns,
                     [wanted](benchmark::State& state, const Row& row) {
                         PressInTurns(state, row, wanted);
                     })
                ->UseManualTime();
        }
    }));
}
