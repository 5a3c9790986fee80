#include "testing/kit/native/TouchpadTest.h"

namespace kit {

// Sessions are never destroyed: an ended heartbeat's thread object is still joinable, and
// destroying it would end the process. The list keeps them reachable for leak checkers.
static vela::CTandrelHID& NewSession() {
    static auto* const kept = new std::vector<std::unique_ptr<vela::CTandrelHID>>;
    kept->push_back(std::make_unique<vela::CTandrelHID>());
    return *kept->back();
}

TouchpadTest::TouchpadTest() : TouchpadTest(NewSession()) {}

TouchpadTest::TouchpadTest(vela::CTandrelHID& session) : session_(session) {
    machine_.Reset();
    HostCallbacks::Reset();
}

TouchpadTest::~TouchpadTest() {
    machine_.SetFaultPolicy(nullptr);
    if (device_ != nullptr) {
        device_->SetWriteBehaviour(simulator::WriteBehaviour::Pend);
        device_->CompleteHeldWrites();
    }
    session_.Uninitialize();
}

void TouchpadTest::Plug(const TouchpadLayout& layout) { device_ = machine_.Plug(Describe(layout)); }

std::uint32_t TouchpadTest::OpenSession() {
    const std::uint32_t result = session_.Initialize(vela::ScanHIDInformation(&session_));
    session_.SetButtonPressCallback(OnButtonPress);
    session_.SetStatusChangeCallback(OnStatusChange);
    return result;
}

void TouchpadTest::Open(const TouchpadLayout& layout) {
    Plug(layout);
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
}

void TouchpadTest::OpenAndLight(const TouchpadLayout& layout, std::uint32_t activation) {
    ASSERT_NO_FATAL_FAILURE(Open(layout));
    session_.Enable(true);
    session_.Activate(activation);
    for (std::uint32_t button = 0; button < 4; ++button) {
        session_.EnableButton(button, true);
        session_.SetButtonVisible(button, true);
    }
    Settle();
    machine_.ForgetCalls();
    HostCallbacks::Reset();
}

void TouchpadTest::Settle() {
    // Reports are written in the order in which they were queued.
    ASSERT_TRUE(session_.UpdateVelaState());
    std::size_t count = 1;
    do {
        ASSERT_TRUE(device_->WaitForOutputs(count));
        count = device_->Outputs().size() + 1;
    } while (device_->Outputs().back() != RequestReport());
    device_->ForgetOutputs();
}

Bytes TouchpadTest::OutputNumber(std::size_t count) {
    return device_->WaitForOutputs(count) ? device_->Outputs()[count - 1] : Bytes{};
}

}  // namespace kit
