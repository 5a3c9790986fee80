// Measures a scan of few and of many interfaces, beside the platform calls that it makes. The
// touchpad is enumerated last.
#include <stdexcept>

#include "hid/HIDDiscovery.h"
#include "testing/bench/BareScan.h"
#include "testing/bench/Run.h"
#include "testing/bench/ScanInTurns.h"
#include "testing/bench/native/SessionFixture.h"

namespace {

using namespace bench;

simulator::Machine& MachineOf(int interfaces) {
    simulator::Machine& machine = EmptyMachine();
    for (int i = 1; i < interfaces; ++i) machine.Plug(OtherDevice());
    machine.Plug(Touchpad());
    return machine;
}

template <typename Scan>
double CallsOf(simulator::Machine& machine, Scan scan) {
    machine.RecordCalls(true);
    machine.ForgetCalls();
    scan();
    machine.RecordCalls(false);
    return static_cast<double>(machine.Calls().size());
}

double CallsOfScan(int interfaces) {
    simulator::Machine& machine = MachineOf(interfaces);
    vela::CTandrelHID session;
    const double calls = CallsOf(machine, [&] { vela::ScanHIDInformation(&session); });
    if (calls != CallsOf(machine, BareScan)) {
        throw std::runtime_error("the two scans do not make as many calls");
    }
    return calls;
}

void RegisterScanOf(int interfaces) {
    Register({"scan, " + std::to_string(interfaces) + " interfaces", kScanPeer, kMedians, 1.1},
             20 + 2000 / interfaces,
             [interfaces](benchmark::State& state, const Row& row) {
                 MachineOf(interfaces);
                 ScanInTurns(state, row);
             })
        ->UseManualTime();
}

// Counts calls instead of time, because the simulated machine's own time is not linear.
void CountCalls(benchmark::State& state, const Row& row) {
    double ofMany = 0;
    double ofFew = 0;
    for (auto _ : state) {
        const double ofHundred = CallsOfScan(100);
        ofMany = (CallsOfScan(1000) - ofHundred) / 900;
        ofFew = (ofHundred - CallsOfScan(10)) / 90;
    }
    Report(state, row, ofMany, ofFew);
}

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        for (const int interfaces : {1, 10, 100, 1000}) RegisterScanOf(interfaces);
        Register({"scan, platform calls for each further interface", "up to 100", kGrowth, 1}, 1,
                 CountCalls);
    });
}
