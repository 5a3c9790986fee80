// Counts the agent's own heap allocations, without the platform's. Some are needed, for data that
// is handed on: a report in the queue or at the kernel, a line for the log's writer.
#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/RunningLogger.h"
#include "testing/bench/native/HeapCount.h"
#include "testing/bench/native/SessionFixture.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace {

using namespace bench;

constexpr int kTimes = 1000;
// The number of entries in a deque's block of 512 bytes.
constexpr double kReportsInBlock = 16;
constexpr double kLinesInBlock = 6;
constexpr double kQueuedReport = 1 + 1 / kReportsInBlock;
constexpr double kQueuedLine = 1 + 1 / kLinesInBlock;
constexpr double kOperations = 2;

// The row's peer is the number of allocations that are needed.
template <typename Work>
void CountEach(benchmark::State& state, const Row& row, std::size_t (*count)(), double needed,
               Work work) {
    work();
    const std::size_t before = count();
    for (auto _ : state) work();
    const auto counted = static_cast<double>(count() - before);
    Report(state, row, counted / static_cast<double>(state.iterations()), needed);
}

void CountForReport(benchmark::State& state, const Row& row, std::uint8_t events,
                    std::size_t lightReports, double needed) {
    SessionFixture fixture;
    const Uncounted uncounted;
    simulator::Device& device = fixture.Device();
    const simulator::Bytes report = {virtual_touchpad::kButtonReportId, events, 0};
    CountEach(state, row, AllocationsOfAllThreads, needed, [&] {
        device.WaitForPendingReads();
        device.SendInput(report);
        device.WaitForPendingReads();
        device.WaitForOutputs(lightReports);
        device.ForgetOutputs();
    });
}

void CountForNoButton(benchmark::State& state, const Row& row) {
    CountForReport(state, row, 0, 0, 0);
}

void CountForPress(benchmark::State& state, const Row& row) {
    constexpr std::uint8_t kCamera = 1 << 1;
    CountForReport(state, row, kCamera, 1, kOperations + kQueuedReport);
}

void CountForSetButtonLight(benchmark::State& state, const Row& row) {
    SessionFixture fixture;
    bool on = false;
    CountEach(state, row, AllocationsOfThisThread, kQueuedReport, [&] {
        fixture.Session().SetButtonLight(vela::BUTTON_ID_CAMERA, on = !on);
        const Uncounted uncounted;
        fixture.Device().WaitForOutputs(1);
        fixture.Device().ForgetOutputs();
    });
}

void CountForLogCall(benchmark::State& state, const Row& row, double needed) {
    vela::ILog* const log = vela::GetLogger();
    CountEach(state, row, AllocationsOfThisThread, needed, [log] {
        log->Log(vela::kLogInfo, "SetButtonLight", "SetButtonLight for BUTTON_ID %d (%d)", 0, 1);
    });
}

void CountForLogCallDropped(benchmark::State& state, const Row& row) {
    CountForLogCall(state, row, 0);
}

void CountForLogCallQueued(benchmark::State& state, const Row& row) {
    const RunningLogger logger;
    CountForLogCall(state, row, kQueuedLine);
}

const struct {
    const char* what;
    const char* needed;
    void (*measure)(benchmark::State& state, const Row& row);
} kRows[] = {
    {"input report without a button", "nothing", CountForNoButton},
    {"press and its light report, all threads", "report, operation", CountForPress},
    {"SetButtonLight, its thread", "report", CountForSetButtonLight},
    {"Log call, logger not initialised", "nothing", CountForLogCallDropped},
    {"Log call, its thread", "message", CountForLogCallQueued},
};

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        for (const auto& [what, needed, measure] : kRows) {
            Register({std::string("heap allocations, ") + what, needed, kAllocations, 0}, kTimes,
                     measure);
        }
    });
}
