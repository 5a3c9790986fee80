// From the touchpad to the host and back: the agent's session beside a bare loop of the same reads
// and writes, on one virtual touchpad, in turns.
#include <cstdio>
#include <exception>
#include <functional>
#include <memory>
#include <stdexcept>

#include "bench/Stopwatch.h"
#include "bench/Table.h"
#include "bench/windows/Host.h"
#include "virtual-touchpad/plug/Plug.h"

namespace {

using namespace bench;

constexpr std::size_t kTurns = 20;
constexpr int kWarmUp = 10;
constexpr int kPresses = 100;
constexpr std::uint16_t kCameraButton = 0x41;
constexpr double kPatience = 5e9;

struct Latencies {
    Samples seen;  // until the host has the press
    Samples lit;   // until the device has the light report
};

double WaitUntil(const std::function<bool()>& condition) {
    const double start = Nanoseconds();
    while (!condition()) {
        if (Nanoseconds() - start > kPatience) throw std::runtime_error("no answer to a press");
    }
    return Nanoseconds();
}

Latencies Presses(virtual_touchpad::TouchpadControl& touchpad, Host& host) {
    Latencies latencies;
    for (int i = 0; i < kWarmUp + kPresses; ++i) {
        const std::uint64_t sequence = touchpad.Device().LastSequence();
        host.Forget();
        const double start = Nanoseconds();
        touchpad.Press(kCameraButton);
        // Each question costs the device as much as a report: none until the host has the press.
        WaitUntil([&] {
            SwitchToThread();
            return host.PressSeen() != 0;
        });
        const double lit = WaitUntil([&] { return touchpad.Device().LastSequence() > sequence; });
        if (i < kWarmUp) continue;
        latencies.seen.Add(host.PressSeen() - start);
        latencies.lit.Add(lit - start);
    }
    return latencies;
}

struct Measured {
    Latencies agent;
    Latencies bare;
    Latencies bareWithWriter;
};

Measured Measure(const acceptance::AgentDll& agent, const std::wstring& path,
                 virtual_touchpad::TouchpadControl& touchpad) {
    const auto turn = [&](Host& host, Latencies& latencies) {
        const Latencies presses = Presses(touchpad, host);
        latencies.seen.Add(presses.seen);
        latencies.lit.Add(presses.lit);
    };
    Measured measured;
    for (std::size_t i = 0; i < kTurns; ++i) {
        turn(*std::make_unique<AgentHost>(agent), measured.agent);
        turn(*std::make_unique<BareHost>(path, touchpad, WritesOn::TheReader), measured.bare);
        turn(*std::make_unique<BareHost>(path, touchpad, WritesOn::AThreadOfItsOwn),
             measured.bareWithWriter);
    }
    return measured;
}

void PrintAll(const std::string& also, const Measured& measured, std::optional<double> seenTarget,
              double litTarget) {
    const Latencies& agent = measured.agent;
    const std::string lit = "Wine: press to the light report" + also;
    PrintMedians("Wine: input report to the callback" + also, "bare ReadFile loop",
                 {agent.seen, measured.bare.seen}, seenTarget);
    PrintMedians(lit, "bare read and write loop", {agent.lit, measured.bare.lit}, litTarget);
    PrintMedians(lit, "the same, writing on a second thread",
                 {agent.lit, measured.bareWithWriter.lit}, {});
}

int Main() {
    virtual_touchpad::UnplugAll();
    const std::wstring path = virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    virtual_touchpad::TouchpadControl touchpad;
    const acceptance::AgentDll agent;

    PrintAll("", Measure(agent, path, touchpad), 1.05, 1.15);
    agent.InitLogger(std::filesystem::temp_directory_path().c_str());
    PrintAll(", logger running", Measure(agent, path, touchpad), {}, 2);
    agent.UnInitLogger();
    return 0;
}

}  // namespace

int main() {
    try {
        return Main();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
