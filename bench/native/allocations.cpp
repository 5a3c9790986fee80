// Heap allocations of the agent's own, the platform's left out. What is handed on has to lie
// somewhere: a report in the queue or with the kernel, a message with the writer.
#include "bench/Table.h"
#include "bench/native/HeapCount.h"
#include "bench/native/Stage.h"
#include "log/ILog.h"
#include "virtual-touchpad/descriptor/TouchpadLayout.h"

namespace {

using namespace bench;

constexpr int kTimes = 1000;
// A deque's blocks: 512 bytes, in which so many entries fit.
constexpr double kReportsInBlock = 16;
constexpr double kLinesInBlock = 6;

template <typename Work>
double Each(std::size_t (*count)(), Work work) {
    work();
    const std::size_t before = count();
    for (int i = 0; i < kTimes; ++i) work();
    return static_cast<double>(count() - before) / kTimes;
}

void Show(const std::string& what, double each, const std::string& needed, double most) {
    // A block more or less, as one may have been begun before.
    Print({"heap allocations, " + what, Number(each), needed + ": " + Number(most),
           Number(each - most + 0.0004) + " more", "0.00 more", each <= most + 0.005});
}

double EachReport(Stage& stage, std::uint8_t events, std::size_t answers) {
    const Uncounted stageHand;
    simulator::Device& device = stage.Device();
    const simulator::Bytes report = {virtual_touchpad::kButtonReportId, events, 0};
    return Each(AllocationsOfAllThreads, [&] {
        device.WaitForPendingReads();
        device.SendInput(report);
        device.WaitForPendingReads();
        device.WaitForOutputs(answers);
        device.ForgetOutputs();
    });
}

void WithoutLogger(Stage& stage) {
    constexpr std::uint8_t kCamera = 1 << 1;
    Show("input report without a button", EachReport(stage, 0, 0), "nothing", 0);
    Show("press and its light report, all threads", EachReport(stage, kCamera, 1),
         "report, operation", 2 + 1 + 1 / kReportsInBlock);
    bool on = false;
    const double update = Each(AllocationsOfThisThread, [&] {
        stage.Session().SetButtonLight(vela::BUTTON_ID_CAMERA, on = !on);
        const Uncounted stageHand;
        stage.Device().WaitForOutputs(1);
        stage.Device().ForgetOutputs();
    });
    Show("SetButtonLight, its thread", update, "report", 1 + 1 / kReportsInBlock);
}

void Log() {
    const LogFolder folder;
    vela::ILog* const log = vela::GetLogger();
    const auto call = [log] {
        log->Log(vela::kLogInfo, "SetButtonLight", "SetButtonLight for BUTTON_ID %d (%d)", 0, 1);
    };
    Show("Log call, logger not initialised", Each(AllocationsOfThisThread, call), "nothing", 0);
    log->Initialize(folder.ForAgent());
    Show("Log call, its thread", Each(AllocationsOfThisThread, call), "message",
         1 + 1 / kLinesInBlock);
    log->UnInitialize();
}

}  // namespace

int main() {
    {
        Stage stage;
        WithoutLogger(stage);
    }
    Log();
}
