#include "testing/acceptance/TouchpadAcceptanceTest.h"

#include <condition_variable>
#include <mutex>
#include <stdexcept>

#include "testing/acceptance/LitLights.h"

namespace acceptance {
namespace {

std::mutex mutex;  // guards: calls
std::condition_variable called;
std::vector<std::string> calls;

void Note(std::string call) {
    const std::lock_guard<std::mutex> lock(mutex);
    calls.push_back(std::move(call));
    called.notify_all();
}

void OnButtonPress(std::uint32_t button, std::uint32_t newLight) {
    Note("press " + std::to_string(button) + " " + std::to_string(newLight));
}

void OnStatusChange(std::uint32_t status) { Note("status " + std::to_string(status)); }

}  // namespace

std::vector<std::string> CallbackCalls() {
    const std::lock_guard<std::mutex> lock(mutex);
    return calls;
}

bool WaitForCallbackCalls(std::size_t count) {
    std::unique_lock<std::mutex> lock(mutex);
    return called.wait_for(lock, kPatience, [count] { return calls.size() >= count; });
}

TouchpadAcceptanceTest::TouchpadAcceptanceTest() {
    virtual_touchpad::UnplugAll();
    agent_.InitLogger(log_.Path().c_str());
}

TouchpadAcceptanceTest::~TouchpadAcceptanceTest() {
    agent_.UnInit();
    agent_.UnInitLogger();
    if (touchpad_ != nullptr) Unplug();
}

void TouchpadAcceptanceTest::Plug(const TouchpadLayout& layout) {
    virtual_touchpad::Plug(layout);
    touchpad_ = std::make_unique<TouchpadControl>(virtual_touchpad::kDefaultName, layout);
}

void TouchpadAcceptanceTest::Unplug() {
    touchpad_.reset();
    virtual_touchpad::Unplug();
}

void TouchpadAcceptanceTest::Open() {
    ASSERT_EQ(agent_.Init(), VELA_INIT_OPEN);
    agent_.SetVelaButtonPressCallback(OnButtonPress);
    agent_.SetVelaStatusChangeCallback(OnStatusChange);
}

void TouchpadAcceptanceTest::LightAll(std::uint32_t activation) {
    EXPECT_EQ(agent_.EnableFeature(1), 1);
    EXPECT_EQ(agent_.Activate(activation), 1);
    for (std::uint32_t button = 0; button < 4; ++button) {
        EXPECT_EQ(agent_.EnableSingleButton(button, 1), 1);
        EXPECT_EQ(agent_.SetButtonVisible(button, 1), 1);
    }
}

void TouchpadAcceptanceTest::OpenLit(const TouchpadLayout& layout) {
    Plug(layout);
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    ASSERT_TRUE(WaitForLights(AllFourLit));
}

bool TouchpadAcceptanceTest::WaitForLights(const std::function<bool(const Lights&)>& wanted) {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    do {
        if (wanted(touchpad_->CurrentLights())) return true;
        Sleep(10);
    } while (std::chrono::steady_clock::now() < deadline);
    return false;
}

}  // namespace acceptance
