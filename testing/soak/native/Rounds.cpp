#include "testing/soak/native/Rounds.h"

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "testing/soak/LivelyCallbacks.h"

namespace soak {
namespace {

constexpr int kOpeningThreads = 2;
constexpr int kCallingThreads = 4;

void Join(std::vector<std::thread>& threads) {
    for (std::thread& thread : threads) thread.join();
}

}  // namespace

Rounds::Rounds(const Agent& agent, SoakTouchpad& touchpad) : agent_(agent), touchpad_(touchpad) {}

void Rounds::Run(std::int64_t count) {
    roundsLeft_ = count;
    over_ = false;
    std::vector<std::thread> opening;
    std::vector<std::thread> others;
    for (int i = 0; i < kOpeningThreads; ++i) opening.emplace_back(&Rounds::OpenAndClose, this);
    for (int i = 0; i < kCallingThreads; ++i) others.emplace_back(&Rounds::MakeCalls, this);
    others.emplace_back(&Rounds::Press, this);
    Join(opening);
    over_ = true;
    Join(others);
}

void Rounds::OpenAndClose() {
    Random random(std::random_device{}());
    while (roundsLeft_.fetch_sub(1) > 0) {
        if (agent_.Init() != VELA_INIT_OPEN) ++refused_;
        agent_.EnableFeature(1);
        agent_.Activate(VELA_ACTIVE);
        // Half of the rounds close at once; the others give the threads some time with the session.
        if (Below(random, 2) != 0) {
            std::this_thread::sleep_for(std::chrono::microseconds(Below(random, 1000)));
        }
        if (agent_.UnInit() != 0) ++closings_;
    }
}

void Rounds::MakeCalls() {
    Random random(std::random_device{}());
    while (!over_) {
        MakeCall(random);
        ++calls_;
    }
}

void Rounds::MakeCall(Random& random) {
    switch (Below(random, 32)) {
        case 0:
        case 1:
            return SetCallbacks(agent_, true);
        case 2:
            return agent_.SetVelaButtonPressCallback(nullptr);
        case 3:
            return agent_.SetVelaStatusChangeCallback(nullptr);
        case 4:
            if (queriesPresence_) agent_.IsVelaPresent();
            return;
        case 5:
            return Log(random);
        default:
            return MakeRandomCall(agent_, random);
    }
}

// Makes some calls with the log started, while the other threads call too.
void Rounds::Log(Random& random) {
    agent_.InitLogger(logFolder_.Path().wstring().c_str());
    for (int i = 0; i < 8; ++i) MakeRandomCall(agent_, random);
    agent_.UnInitLogger();
}

void Rounds::Press() {
    Random random(std::random_device{}());
    while (!over_) {
        touchpad_.Send(static_cast<std::uint8_t>(1U << Below(random, 8)), 0);
        std::this_thread::yield();
    }
}

}  // namespace soak
