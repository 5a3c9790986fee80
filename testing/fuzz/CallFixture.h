// A touchpad, a haptic touchpad and a host, with the model that gives their expected behaviour.
#pragma once

#include <memory>

#include "testing/fuzz/Check.h"
#include "testing/fuzz/FuzzInput.h"
#include "testing/kit/SessionModel.h"
#include "testing/simulator/Machine.h"

namespace fuzz {

using kit::Bytes;
using kit::SessionModel;
using kit::TouchpadLayout;

// The expected state of the haptic touchpad's session.
struct HapticModel {
    bool plugged = true;
    bool open = false;
    bool connected = false;
    std::uint32_t level = 0;
};

class CallFixture {
 public:
    explicit CallFixture(const TouchpadLayout& layout);
    // Returns the agent to the state of a new process.
    ~CallFixture();
    CallFixture(const CallFixture&) = delete;
    CallFixture& operator=(const CallFixture&) = delete;

    // Compares what an export returned with what the model returned.
    template <typename Got, typename Expected>
    void Same(Got got, Expected expected, const char* call) {
        if (callsFail_) return;
        CheckSame(static_cast<std::int64_t>(got), static_cast<std::int64_t>(expected), call);
    }
    // Compares the reports at the touchpad, the callbacks and the flags that can be read any time.
    void CompareAll(const char* step);

    void Init();
    void UnInit();
    // Sends an input report and waits until the session has handled it. Bit n of `buttons` is usage
    // 0x40 + n.
    void Send(std::uint8_t reportId, std::uint8_t buttons, std::uint8_t firmwareState);
    void Unplug();
    void PlugIn();
    void HoldElsewhere(bool held);
    void HoldMutexElsewhere(bool held);
    void PlugHaptic(bool plugged);
    void InitLogger();
    void UnInitLogger();
    // Makes platform calls fail. The model cannot follow, so from then on nothing is compared but
    // that the agent recovers: the destructor opens a session that works and leaves no light on.
    void FailACall(FuzzInput& input);

    SessionModel model;
    HapticModel haptic;
    simulator::Machine& machine;
    std::shared_ptr<simulator::Device> touchpad;
    std::shared_ptr<simulator::Device> hapticTouchpad;

 private:
    bool WriteAllQueued();
    void Recover();
    void CompareClosing(const Bytes& lastReport, bool allWereWritten);

    std::vector<Bytes> expectedReports_;  // since the session was opened
    int loggers_ = 0;
    bool callsFail_ = false;
};

// A call of an export, or an event at a device, with arguments from the input.
struct CallStep {
    const char* name;
    void (*run)(CallFixture& fixture, FuzzInput& input);
};
CallStep TakeStep(FuzzInput& input);

}  // namespace fuzz
