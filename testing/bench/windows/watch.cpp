// Measures how soon a touchpad is lit that a watch of VelaAgentWatch.hpp looks after: after it was
// plugged in, and after the machine's resume. What the system itself needs stands beside it.
#include <functional>

#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/windows/Arrivals.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using namespace bench;

constexpr int kTurns = 100;
constexpr int kGoalTurns = 200;
constexpr double kGoal = 300e6;

constexpr char kArrival[] = "Wine: plugged in, until a watch has lit it";
constexpr char kResume[] = "Wine: resumed, until a watch has lit it again";

const vela_agent::Library& Library() {
    static const vela_agent::Library library(kit::ProgramFolder() / "VelaAgent.dll");
    return library;
}

using Time = std::function<double()>;

void Arrive(benchmark::State& state, const Row& row, const Time& peer) {
    virtual_touchpad::UnplugAll();
    WaitUntilNotified();
    TakeTurns(
        state, row, [] { return ArrivalUntilLit(Library()); }, peer);
}

void Resume(benchmark::State& state, const Row& row, const Time& peer) {
    virtual_touchpad::UnplugAll();
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    TakeTurns(
        state, row, [] { return ResumeUntilLit(Library()); }, peer);
    virtual_touchpad::UnplugAll();
}

using Measured = void (*)(benchmark::State& state, const Row& row, const Time& peer);

void RegisterRow(const Row& row, int turns, Measured measured, const Time& peer) {
    Register(row, turns, [=](benchmark::State& state, const Row& own) {
        measured(state, own, peer);
    })->UseManualTime();
}

// The goal is what the slowest of a hundred may take.
void RegisterGoal(const std::string& what, Measured measured) {
    RegisterRow({what + ", 99 %", "the goal", kSlowest, 1}, kGoalTurns, measured,
                [] { return kGoal; });
}

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        RegisterRow({kArrival, "until a bare window is notified", kMedians, {}}, kTurns, Arrive,
                    ArrivalUntilNotified);
        RegisterRow({kArrival, "the same, and CreateFile has opened it", kMedians, {}}, kTurns,
                    Arrive, ArrivalUntilOpened);
        RegisterGoal(kArrival, Arrive);
        RegisterRow({kResume, "closing, opening and the same calls", kMedians, {}}, kTurns, Resume,
                    [] { return ReopeningUntilLit(Library()); });
        RegisterGoal(kResume, Resume);
    });
}
