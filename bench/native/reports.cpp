// What a light report costs on the caller's thread, beside the platform calls that it is made of.
#include "bench/Stopwatch.h"
#include "bench/Table.h"
#include "bench/native/BareComposition.h"
#include "bench/native/ComposeOperation.h"
#include "bench/native/Sleeper.h"
#include "bench/native/Stage.h"
#include "log/ILog.h"

namespace {

using namespace bench;

constexpr std::size_t kRounds = 20000;
constexpr char kPeer[] = "its HidP calls";

template <typename Work>
auto Once(Work work) {
    return [work]() mutable {
        Samples samples;
        samples.Add(Timed(work));
        return samples;
    };
}

void Composition(Stage& stage, BareComposition& bare) {
    vela::CTandrelHID& session = stage.Session();
    const Compose compose = ComposeOperation();
    std::vector<BYTE> report(session.Information()->caps.OutputReportByteLength);
    const Pair pair =
        TakeTurns(kRounds, Once([&] { (session.*compose)(report); }), Once([&] { bare(false); }));
    PrintMedians("report composition", kPeer, pair, 1.1);
}

// Each call changes the light, and the writer has written its report before the next one.
auto SetButtonLight(Stage& stage) {
    return [&stage, on = false]() mutable {
        on = !on;
        Samples samples;
        samples.Add(Timed([&] { stage.Session().SetButtonLight(vela::BUTTON_ID_CAMERA, on); }));
        stage.Device().WaitForOutputs(1);
        stage.Device().ForgetOutputs();
        return samples;
    };
}

void BesideCalls(const std::string& what, Stage& stage, BareComposition& bare) {
    PrintMedians(what, kPeer, TakeTurns(kRounds, SetButtonLight(stage), Once([&] { bare(false); })),
                 1.3);
}

// What no hand-over to a writer thread can go below.
void BesideCallsAndWaking(Stage& stage, BareComposition& bare) {
    Sleeper sleeper;
    const auto peer = [&] {
        Samples samples;
        samples.Add(Timed([&] {
            bare(false);
            sleeper.Wake();
        }));
        sleeper.WaitUntilAsleep();
        return samples;
    };
    PrintMedians("SetButtonLight returns", "the same calls, and waking a thread",
                 TakeTurns(kRounds, SetButtonLight(stage), peer), {});
}

}  // namespace

int main() {
    Stage stage;
    BareComposition bare(stage.Session().Information()->preparsedData);
    Composition(stage, bare);
    BesideCalls("SetButtonLight returns", stage, bare);
    BesideCallsAndWaking(stage, bare);
    const LogFolder folder;
    vela::GetLogger()->Initialize(folder.ForAgent());
    BesideCalls("SetButtonLight returns, logger running", stage, bare);
    vela::GetLogger()->UnInitialize();
}
