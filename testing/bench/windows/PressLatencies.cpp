#include "testing/bench/windows/PressLatencies.h"

#include <chrono>
#include <stdexcept>
#include <string>

#include "testing/bench/Row.h"
#include "testing/bench/Stopwatch.h"
#include "testing/kit/LogFolder.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace bench {
namespace {

using namespace virtual_touchpad::events;

constexpr int kTurns = 20;
constexpr int kWarmUp = 10;
constexpr int kPresses = 100;
constexpr double kPatience = 5e9;  // nanoseconds
constexpr DWORD kSettling = 3;     // milliseconds

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

void RegisterLatencies(const LatencyRow& wanted) {
    const std::string what = std::string(wanted.what) + (wanted.logged ? ", logger running" : "");
    Register(
        {what, wanted.peer, kMedians, wanted.target}, kTurns,
        [wanted](benchmark::State& state, const Row& row) { PressInTurns(state, row, wanted); })
        ->UseManualTime();
}

}  // namespace bench
