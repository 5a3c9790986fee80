// Registering, replacing and clearing the host's two callbacks.
#include "testing/kit/native/ExportsTest.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

class CallbackExportsTest : public ExportsTest {
 protected:
    void Init() {
        ASSERT_EQ(::Init(), VELA_INIT_OPEN);
        Activate(VELA_ACTIVE);
        EnableSingleButton(VELA_BUTTON_CAMERA, 1);
        EnableSingleButton(VELA_BUTTON_CHAT, 1);
    }
    // Sends the touchpad's report and waits until the session has handled it.
    void Receive(const std::vector<std::uint16_t>& usages) {
        device_->SendInput(InputReport(usages));
        WaitUntilRead();
    }

 private:
    // The reader issues one read at a time: the next is pending once a report was handled.
    void WaitUntilRead() { ASSERT_TRUE(device_->WaitForPendingReads()); }
};

TEST_F(CallbackExportsTest, AreCalledOnceRegistered) {
    Plug();
    Init();
    SetVelaButtonPressCallback(OnButtonPress);
    SetVelaStatusChangeCallback(OnStatusChange);
    Receive({kCameraButton});
    Receive({kGesture});
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1", "status 2"));
    EXPECT_NE(HostCallbacks::LastThread(), std::this_thread::get_id());
}

TEST_F(CallbackExportsTest, MayBeRegisteredBeforeInit) {
    SetVelaButtonPressCallback(OnButtonPress);
    SetVelaStatusChangeCallback(OnStatusChange);
    Plug();
    Init();
    Receive({kChatButton});
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0", "press 2 1"));
}

TEST_F(CallbackExportsTest, AreClearedByNull) {
    Plug();
    Init();
    SetVelaButtonPressCallback(OnButtonPress);
    SetVelaStatusChangeCallback(OnStatusChange);
    SetVelaButtonPressCallback(nullptr);
    SetVelaStatusChangeCallback(nullptr);
    Receive({kCameraButton});
    Receive({kGesture});
    Activate(VELA_DEACTIVATED);
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
}

TEST_F(CallbackExportsTest, AreIndependentOfEachOther) {
    Plug();
    Init();
    SetVelaButtonPressCallback(OnButtonPress);
    Receive({kCameraButton, kGesture});
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1"));
}

TEST_F(CallbackExportsTest, AreForgottenByUnInitAndServeAgainOnceRegisteredAgain) {
    Plug();
    Init();
    SetVelaButtonPressCallback(OnButtonPress);
    SetVelaStatusChangeCallback(OnStatusChange);
    UnInit();
    Init();
    Receive({kChatButton});
    Receive({kGesture});
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    SetVelaButtonPressCallback(OnButtonPress);
    SetVelaStatusChangeCallback(OnStatusChange);
    Receive({kChatButton});
    Receive({kGesture});
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 2 1", "status 2"));
}

TEST_F(CallbackExportsTest, AreReplacedByLaterOnes) {
    Plug();
    Init();
    SetVelaStatusChangeCallback([](std::uint32_t) { FAIL() << "replaced"; });
    SetVelaStatusChangeCallback(OnStatusChange);
    Activate(VELA_SUSPENDED);
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 5"));
}

}  // namespace
