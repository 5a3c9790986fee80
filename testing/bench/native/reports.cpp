// Measures a light report's cost on the caller's thread, beside the platform calls that compose it.
#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/RunningLogger.h"
#include "testing/bench/Stopwatch.h"
#include "testing/bench/native/BareComposition.h"
#include "testing/bench/native/SessionFixture.h"
#include "testing/bench/native/Sleeper.h"
#include "touchpad/LedReport.h"

namespace {

using namespace bench;

constexpr int kTurns = 20000;
constexpr char kCalls[] = "its HidP calls";

BareComposition BareCompositionOf(SessionFixture& fixture) {
    return BareComposition(fixture.Session().Information()->preparsedData);
}

double TimeOfCalls(BareComposition& bare) {
    return Timed([&bare] { bare(false); });
}

void ComposeBesideCalls(benchmark::State& state, const Row& row) {
    SessionFixture fixture;
    BareComposition bare = BareCompositionOf(fixture);
    const vela::CHIDInformation& information = *fixture.Session().Information();
    vela::ButtonTable buttons;
    for (const std::uint32_t button : vela::kSeededButtonIds) {
        buttons.SetFlag(button, &vela::ButtonState::enabled, true);
        buttons.SetFlag(button, &vela::ButtonState::visible, true);
    }
    constexpr vela::LedState kLit{true, 3};
    std::vector<BYTE> report(information.caps.OutputReportByteLength);
    TakeTurns(
        state, row,
        [&] { return Timed([&] { vela::UpdateLedCtrl(information, kLit, buttons, report); }); },
        [&] { return TimeOfCalls(bare); });
}

// A thread wakes sooner on a core that has just been busy. This pause before each waking leaves the
// other core idle long enough to be in the same state, whatever the last turn did there.
void Rest() {
    constexpr double kLongEnough = 100000;
    const double start = Nanoseconds();
    while (Nanoseconds() - start < kLongEnough) {
    }
}

// Each call changes the light, and waits until the writer has written the report.
class LightSwitch {
 public:
    explicit LightSwitch(SessionFixture& fixture) : fixture_(fixture) {}

    double operator()() {
        Rest();
        on_ = !on_;
        const double time =
            Timed([this] { fixture_.Session().SetButtonLight(vela::BUTTON_ID_CAMERA, on_); });
        fixture_.Device().WaitForOutputs(1);
        fixture_.Device().ForgetOutputs();
        return time;
    }

 private:
    SessionFixture& fixture_;
    bool on_ = false;
};

void SetLightBesideCalls(benchmark::State& state, const Row& row) {
    SessionFixture fixture;
    BareComposition bare = BareCompositionOf(fixture);
    TakeTurns(state, row, LightSwitch(fixture), [&] { return TimeOfCalls(bare); });
}

void SetLightBesideCallsLogged(benchmark::State& state, const Row& row) {
    const RunningLogger logger;
    SetLightBesideCalls(state, row);
}

// The peer here is the lower limit of any hand-over to a writer thread.
void SetLightBesideWaking(benchmark::State& state, const Row& row) {
    SessionFixture fixture;
    BareComposition bare = BareCompositionOf(fixture);
    Sleeper sleeper;
    TakeTurns(state, row, LightSwitch(fixture), [&] {
        Rest();
        const double time = Timed([&] {
            bare(false);
            sleeper.Wake();
        });
        sleeper.WaitUntilAsleep();
        return time;
    });
}

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        const auto add = [](const Row& row, const Measure& measure) {
            Register(row, kTurns, measure)->UseManualTime();
        };
        add({"report composition", kCalls, kMedians, 1.1}, ComposeBesideCalls);
        add({"SetButtonLight returns", kCalls, kMedians, 1.3}, SetLightBesideCalls);
        add({"SetButtonLight returns", "the same calls, and waking a thread", kMedians, {}},
            SetLightBesideWaking);
        add({"SetButtonLight returns, logger running", kCalls, kMedians, 1.3},
            SetLightBesideCallsLogged);
    });
}
