// A scan of few and of many interfaces, beside the platform calls that it makes. The touchpad comes
// last.
#include <map>

#include "bench/Stopwatch.h"
#include "bench/Table.h"
#include "bench/native/BareScan.h"
#include "bench/native/Stage.h"
#include "hid/HIDDiscovery.h"

namespace {

using namespace bench;

double CallsOfScan(vela::CTandrelHID& session, simulator::Machine& machine) {
    machine.RecordCalls(true);
    machine.ForgetCalls();
    vela::ScanHIDInformation(&session);
    machine.RecordCalls(false);
    return static_cast<double>(machine.Calls().size());
}

template <typename Scan>
auto Once(Scan scan) {
    return [scan] {
        Samples samples;
        samples.Add(Timed(scan));
        return samples;
    };
}

}  // namespace

int main() {
    vela::CTandrelHID session;
    std::map<std::size_t, double> calls;
    for (const std::size_t interfaces : {1, 10, 100, 1000}) {
        simulator::Machine& machine = EmptyMachine();
        for (std::size_t i = 1; i < interfaces; ++i) machine.Plug(OtherDevice());
        machine.Plug(Touchpad());
        calls[interfaces] = CallsOfScan(session, machine);
        const Pair pair =
            TakeTurns(20 + 2000 / interfaces, Once([&] { vela::ScanHIDInformation(&session); }),
                      Once(BareScan));
        PrintMedians("scan, " + std::to_string(interfaces) + " interfaces", "its platform calls",
                     pair, 1.1);
    }
    // The simulated machine's own time is not linear: what is counted are calls.
    const double each = (calls[1000] - calls[100]) / 900;
    const double eachOfFew = (calls[100] - calls[10]) / 90;
    Print({"scan, platform calls for each further interface", Number(each),
           "up to 100: " + Number(eachOfFew), Number(each / eachOfFew), "linear: 1.00",
           each == eachOfFew});
}
