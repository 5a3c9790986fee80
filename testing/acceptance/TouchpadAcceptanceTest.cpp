#include "testing/acceptance/TouchpadAcceptanceTest.h"

#include "testing/kit/windows/Lights.h"

namespace acceptance {

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
    return WaitUntil([&] { return wanted(touchpad_->CurrentLights()); });
}

}  // namespace acceptance
