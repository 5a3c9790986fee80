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

struct Pairs {
    Pair seen;
    Pair lit;
};

Pairs Measure(const acceptance::AgentDll& agent, const std::wstring& path,
              virtual_touchpad::TouchpadControl& touchpad) {
    Pairs pairs;
    const auto turn = [&](const std::function<std::unique_ptr<Host>()>& open, Samples& seen,
                          Samples& lit) {
        const std::unique_ptr<Host> host = open();
        const Latencies latencies = Presses(touchpad, *host);
        seen.Add(latencies.seen);
        lit.Add(latencies.lit);
    };
    for (std::size_t i = 0; i < kTurns; ++i) {
        turn([&] { return std::make_unique<AgentHost>(agent); }, pairs.seen.measured,
             pairs.lit.measured);
        turn([&] { return std::make_unique<BareHost>(path, touchpad); }, pairs.seen.peer,
             pairs.lit.peer);
    }
    return pairs;
}

int Main() {
    constexpr char kReading[] = "bare ReadFile loop";
    constexpr char kWriting[] = "bare read and write loop";
    virtual_touchpad::UnplugAll();
    const std::wstring path = virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    virtual_touchpad::TouchpadControl touchpad;
    const acceptance::AgentDll agent;

    const Pairs quiet = Measure(agent, path, touchpad);
    PrintMedians("Wine: input report to the callback", kReading, quiet.seen, 1.05);
    PrintMedians("Wine: press to the light report", kWriting, quiet.lit, 1.15);

    agent.InitLogger(std::filesystem::temp_directory_path().c_str());
    const Pairs logged = Measure(agent, path, touchpad);
    agent.UnInitLogger();
    PrintMedians("Wine: input report to the callback, logger running", kReading, logged.seen, {});
    PrintMedians("Wine: press to the light report, logger running", kWriting, logged.lit, 2);
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
