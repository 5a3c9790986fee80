// Random sessions: after every step the touchpad shows what the host wants of it.
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>
#include <utility>

#include "testing/unit/watch/SettingsModel.h"
#include "testing/unit/watch/WatchTest.h"

namespace watch_tests {
namespace {

using kit::ButtonState;

class RandomSessionsTest : public WatchTest {
 protected:
    RandomSessionsTest() : device_(Plug()), watch_(Start()) { machine_.RecordCalls(false); }

    std::string TakeStep();
    bool ShowsTheSettings() const;
    std::string Difference() const {
        return testing::PrintToString(LastLights(*device_)) + " instead of " +
               testing::PrintToString(model_.Lights(ButtonState::Breathing::Requested));
    }

    std::size_t Random(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }
    bool Chance() { return Random(2) == 1; }

    void ChangeSettings();
    void PressButton();
    void DisableForAWhile();
    void UnplugOrReplug();
    void ReplugAtOnce();
    void Sleep();
    void LoseToAnotherProgram();
    void Reopen(const std::function<void()>& cause);
    void Send(const std::vector<std::uint16_t>& usages);
    // Does something, or sends an input report, and waits until the host is notified of it.
    void DoAndWait(const std::function<void()>& cause, const std::string& event);
    void SendAndWait(std::uint16_t usage, const std::string& event);

    std::mt19937 random_{20261122};
    std::shared_ptr<simulator::Device> device_;
    bool isPlugged_ = true;
    SettingsModel model_;
    Watch& watch_;
};

void RandomSessionsTest::ChangeSettings() {
    Settings& settings = model_.settings;
    vela_agent::ButtonSettings& button = settings.buttons[Random(4)];
    constexpr std::uint32_t kActivations[] = {VELA_ACTIVE,      VELA_ACTIVE,
                                              VELA_ACTIVE,      VELA_ACTIVE_HOST_SETS_LIGHTS,
                                              VELA_DEACTIVATED, VELA_SUSPENDED};
    const std::vector<std::function<void()>> changes{
        [&] { settings.activation = kActivations[Random(6)]; },
        [&] { settings.feature = Random(4) != 0; },
        [&] { settings.brightness = static_cast<std::uint8_t>(Random(256)); },
        [&] { settings.chatBreathingEnabled = Chance(); },
        [&] { settings.chatBreathing = Chance(); },
        [&] { button.enabled = Chance(); },
        [&] { button.visible = Chance(); },
        [&] { button.light = Chance(); },
        [&] { LightAll(settings); },
    };
    for (std::size_t i = Random(3) + 1; i > 0; --i) changes[Random(changes.size())]();
    watch_.Change([&](Settings& all) { all = settings; });
}

void RandomSessionsTest::Send(const std::vector<std::uint16_t>& usages) {
    ASSERT_TRUE(device_->WaitForPendingReads());
    device_->SendInput(kit::InputReport(usages));
}

void RandomSessionsTest::DoAndWait(const std::function<void()>& cause, const std::string& event) {
    const auto count = [&] {
        const std::vector<std::string> events = Events();
        return std::count_if(events.begin(), events.end(), [&](const std::string& each) {
            return each.compare(0, event.size(), event) == 0;
        });
    };
    const auto before = count();
    cause();
    ASSERT_TRUE(kit::WaitUntil([&] { return count() > before; })) << event;
}

void RandomSessionsTest::SendAndWait(std::uint16_t usage, const std::string& event) {
    DoAndWait([&] { Send({usage}); }, event);
}

void RandomSessionsTest::PressButton() {
    constexpr std::uint16_t kPresses[] = {0x41, 0x44, 0x43, 0x42};  // by VelaButton
    const std::size_t button = Random(4);
    // A light that is not shown does not tell whether its last change has been set already.
    const auto& [enabled, visible, light] = model_.settings.buttons[button];
    if (!isPlugged_ || model_.IsDark() || !enabled || !visible) return;
    SendAndWait(kPresses[button], "press " + std::to_string(button));
    model_.Press(button);
}

// By the gesture or by tablet mode. The host goes on; the touchpad drives its lights itself until
// it is in use again.
void RandomSessionsTest::DisableForAWhile() {
    if (!isPlugged_ || !model_.IsLit()) return;
    const bool byGesture = Chance();
    SendAndWait(byGesture ? 0x45 : 0x47, byGesture ? "status 2" : "status 3");
    model_.settings.buttons[Random(4)].light = Chance();
    watch_.Change([&](Settings& all) { all.buttons = model_.settings.buttons; });
    if (Chance()) return ReplugAtOnce();
    SendAndWait(byGesture ? 0x40 : 0x46, "status 0");
    model_.settings.chatBreathing = false;
}

void RandomSessionsTest::UnplugOrReplug() {
    if (isPlugged_) {
        device_->Unplug();
    } else if (Chance()) {
        device_->PlugIn();
    } else {
        device_ = Plug();
    }
    isPlugged_ = !isPlugged_;
}

void RandomSessionsTest::ReplugAtOnce() {
    if (!isPlugged_) return;
    device_->Unplug();
    device_ = Plug();
}

// No handle has the name of an earlier one.
void RandomSessionsTest::Reopen(const std::function<void()>& cause) {
    const std::vector<std::string> before = machine_.OpenHandles();
    cause();
    if (!isPlugged_) return;
    EXPECT_TRUE(
        kit::WaitUntil([&] { return machine_.OpenHandles() != before && watch_.IsOpen(); }));
}

// The touchpad forgets its lights meanwhile.
void RandomSessionsTest::Sleep() {
    device_->ForgetOutputs();
    Reopen([this] { machine_.Resume(); });
}

// The other program opens the touchpad as it arrives, and lets it go later.
void RandomSessionsTest::LoseToAnotherProgram() {
    if (isPlugged_) device_->Unplug();
    device_->HoldElsewhere();
    DoAndWait([this] { device_->PlugIn(); }, "held");
    isPlugged_ = true;
    if (Chance()) ChangeSettings();
    device_->ForgetOutputs();
    device_->ReleaseElsewhere();
    if (Chance()) watch_.Refresh();
}

std::string RandomSessionsTest::TakeStep() {
    const std::vector<std::pair<std::string, std::function<void()>>> steps{
        {"change", [this] { ChangeSettings(); }},
        {"press", [this] { PressButton(); }},
        {"disable", [this] { DisableForAWhile(); }},
        {"unplug or replug", [this] { UnplugOrReplug(); }},
        {"replug at once", [this] { ReplugAtOnce(); }},
        {"sleep", [this] { Sleep(); }},
        {"lose to another program", [this] { LoseToAnotherProgram(); }},
        {"refresh", [this] { Reopen([this] { watch_.Refresh(); }); }},
        {"resynchronise",
         [this] {
             if (isPlugged_ && model_.IsLit()) SendAndWait(0x40, "status 0");
         }},
    };
    // Half of all steps are changes.
    const auto& [name, take] = steps[Chance() ? 0 : Random(steps.size())];
    take();
    return name;
}

bool RandomSessionsTest::ShowsTheSettings() const {
    if (!isPlugged_) return kit::WaitUntil([&] { return !watch_.IsOpen(); });
    return kit::WaitUntil([&] {
        const Bytes lights = LastLights(*device_);
        if (lights.empty()) return watch_.IsOpen() && model_.IsDark();
        return watch_.IsOpen() && (lights == model_.Lights(ButtonState::Breathing::Requested) ||
                                   lights == model_.Lights(ButtonState::Breathing::Running));
    });
}

TEST_F(RandomSessionsTest, ShowWhatTheHostWantsAfterEveryStep) {
    const char* const count = std::getenv("VELA_WATCH_STEPS");
    const int steps = count == nullptr ? 1000 : std::atoi(count);
    for (int i = 0; i < steps; ++i) {
        const std::string step = TakeStep();
        ASSERT_TRUE(ShowsTheSettings()) << "step " << i << ": " << step << ", " << Difference();
    }
    Stop();
}

}  // namespace
}  // namespace watch_tests
