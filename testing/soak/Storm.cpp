#include "testing/soak/Storm.h"

#include <atomic>
#include <thread>

#include "testing/soak/RandomCalls.h"

namespace soak {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

void PauseUpTo(std::uint32_t limitMs, Random& random) {
    std::this_thread::sleep_for(milliseconds(Below(random, limitMs)));
}

}  // namespace

void Storm::Run(milliseconds duration) {
    const auto end = steady_clock::now() + duration;
    const auto endOfPlugs = end - duration / 3;
    Allowance allowance;
    HostThreads host(agent_, allowance);
    std::thread presser([&] { Press(allowance); });
    std::atomic<bool> plugs{true};
    std::thread cable([&] { PullPlugs(plugs); });
    std::thread owner([&] { OpenAndClose(plugs); });
    while (steady_clock::now() < endOfPlugs) log_.Run(host, allowance);
    // The last third belongs to one session, whose lights are compared afterwards.
    plugs = false;
    cable.join();
    owner.join();
    if (!owner_.Reaches()) {
        owner_.Close();
        owner_.Open(true);
    }
    while (steady_clock::now() < end) log_.Run(host, allowance);
    allowance.End();
    host.Join();
    presser.join();
    figures_.calls += host.Calls();
}

void Storm::Press(Allowance& allowance) {
    Random random(std::random_device{}());
    for (std::uint32_t count = 1; allowance.Take(); ++count) {
        // Most reports are presses; the others are firmware states or several events at once.
        const bool usual = Below(random, 8) != 0;
        const std::uint32_t buttons = usual ? 1U << Below(random, 8) : Below(random, 256);
        const std::uint32_t state = usual ? 0 : Below(random, 256);
        touchpad_.Send(static_cast<std::uint8_t>(buttons), static_cast<std::uint8_t>(state));
        ++figures_.presses;
        if (count % 1024 == 0) touchpad_.ForgetWritten();
    }
}

void Storm::PullPlugs(const std::atomic<bool>& goOn) {
    Random random(std::random_device{}());
    while (goOn) {
        PauseUpTo(200, random);
        touchpad_.HoldWrites(true);
        PauseUpTo(20, random);
        if (Below(random, 2) != 0) touchpad_.HoldWrites(false);
        touchpad_.Unplug();
        ++figures_.pullings;
        PauseUpTo(50, random);
        touchpad_.PlugIn();
        touchpad_.HoldWrites(false);
    }
}

void Storm::OpenAndClose(const std::atomic<bool>& goOn) {
    Random random(std::random_device{}());
    while (goOn) {
        owner_.Open(true);
        PauseUpTo(400, random);
        owner_.IsPresent();
        owner_.Close();
        owner_.IsPresent();
        owner_.Open(true);
        PauseUpTo(400, random);
    }
}

}  // namespace soak
