#include "testing/soak/ClosingModes.h"

#include <atomic>
#include <functional>
#include <thread>

namespace soak {
namespace {

constexpr std::uint8_t kCameraPressed = 1U << 1;

void ShowButtons(const Agent& agent) {
    for (std::uint32_t button = 0; button < 4; ++button) {
        agent.EnableSingleButton(button, 1);
        agent.SetButtonVisible(button, 1);
    }
}

void LightInTheUsualOrder(const Agent& agent) {
    agent.Activate(VELA_ACTIVE);
    agent.EnableFeature(1);
    ShowButtons(agent);
}

// The lights come on with a forced report, which is not compared with the next one.
void ActivateLast(const Agent& agent) {
    agent.EnableFeature(1);
    ShowButtons(agent);
    agent.Activate(VELA_ACTIVE);
}

void ChangeLights(const Agent& agent, int count) {
    for (int i = 0; i < count; ++i) agent.SetButtonLight(VELA_BUTTON_CAMERA, i % 2 == 0);
}

// Closes the session while threads repeat `act`, from before the closing until after it.
void CloseDuring(const Agent& agent, unsigned threadCount, const std::function<void()>& act) {
    std::atomic<bool> closed{false};
    std::atomic<unsigned> started{0};
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < threadCount; ++i) {
        threads.emplace_back([&] {
            act();
            ++started;
            while (!closed) act();
        });
    }
    while (started < threadCount) std::this_thread::yield();
    agent.UnInit();
    closed = true;
    for (std::thread& thread : threads) thread.join();
}

}  // namespace

const std::vector<ClosingMode>& ClosingModes() {
    static const std::vector<ClosingMode> modes{
        {"UnInit alone", LightInTheUsualOrder,
         [](const Agent& agent, SoakTouchpad&) { agent.UnInit(); }},
        {"activated last, UnInit", ActivateLast,
         [](const Agent& agent, SoakTouchpad&) { agent.UnInit(); }},
        {"SetButtonLight, UnInit", LightInTheUsualOrder,
         [](const Agent& agent, SoakTouchpad&) {
             ChangeLights(agent, 1);
             agent.UnInit();
         }},
        {"20 of SetButtonLight, UnInit", LightInTheUsualOrder,
         [](const Agent& agent, SoakTouchpad&) {
             ChangeLights(agent, 20);
             agent.UnInit();
         }},
        {"SetButtonBreathing, UnInit", LightInTheUsualOrder,
         [](const Agent& agent, SoakTouchpad&) {
             agent.EnableChatBreathing(1);
             agent.SetButtonBreathing(VELA_BUTTON_CHAT, 1);
             agent.UnInit();
         }},
        {"Activate(4), UnInit", LightInTheUsualOrder,
         [](const Agent& agent, SoakTouchpad&) {
             agent.Activate(VELA_DEACTIVATED);
             agent.UnInit();
         }},
        {"Activate(5), Activate(0), UnInit", LightInTheUsualOrder,
         [](const Agent& agent, SoakTouchpad&) {
             agent.Activate(VELA_SUSPENDED);
             agent.Activate(VELA_ACTIVE);
             agent.UnInit();
         }},
        {"EnableFeature(0), UnInit", LightInTheUsualOrder,
         [](const Agent& agent, SoakTouchpad&) {
             agent.EnableFeature(0);
             agent.UnInit();
         }},
        {"a press, UnInit", LightInTheUsualOrder,
         [](const Agent& agent, SoakTouchpad& touchpad) {
             touchpad.Send(kCameraPressed, 0);
             agent.UnInit();
         }},
        {"UnInit, three threads call", LightInTheUsualOrder,
         [](const Agent& agent, SoakTouchpad&) {
             CloseDuring(agent, 3, [&agent] { ChangeLights(agent, 2); });
         }},
        {"UnInit, presses pour in", LightInTheUsualOrder,
         [](const Agent& agent, SoakTouchpad& touchpad) {
             CloseDuring(agent, 1, [&touchpad] { touchpad.Send(kCameraPressed, 0); });
         }},
    };
    return modes;
}

}  // namespace soak
