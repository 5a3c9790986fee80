// Sessions opened and closed over and over: as fast at the end as in the beginning, and what they
// leave behind.
#include <malloc.h>

#include "bench/Stopwatch.h"
#include "bench/Table.h"
#include "bench/native/Stage.h"
#include "hid/HIDDiscovery.h"

namespace {

using namespace bench;

constexpr int kCycles = 10000;
constexpr int kPart = 1000;

double HeapInUse() { return static_cast<double>(mallinfo2().uordblks); }

Samples Cycles(vela::CTandrelHID& session, simulator::Device& device, int count) {
    Samples samples;
    for (int i = 0; i < count; ++i) {
        samples.Add(Timed([&] {
            session.Initialize(vela::ScanHIDInformation(&session));
            session.Uninitialize();
        }));
        device.ForgetOutputs();
    }
    return samples;
}

// A session's two events are never closed, for the sake of operations that end late.
double HeapOfTwoEvents() {
    const double before = HeapInUse();
    for (int i = 0; i < kPart; ++i) {
        CreateEventW(nullptr, FALSE, FALSE, nullptr);
        CreateEventW(nullptr, TRUE, FALSE, nullptr);
    }
    return (HeapInUse() - before) / kPart;
}

}  // namespace

int main() {
    const auto device = EmptyMachine().Plug(Touchpad());
    vela::CTandrelHID session;
    Pair pair;
    pair.peer = Cycles(session, *device, kPart);
    const double before = HeapInUse();
    Cycles(session, *device, kCycles - 2 * kPart);
    pair.measured = Cycles(session, *device, kPart);
    const double each = (HeapInUse() - before) / (kCycles - kPart);
    PrintMedians("Init and UnInit, the last 1,000 of 10,000", "the first 1,000", pair, 1.1);

    const double events = HeapOfTwoEvents();
    Print({"memory that each Init and UnInit leaves", Number(each, 0) + " bytes",
           "its two events alone: " + Number(events, 0) + " bytes",
           Number(each - events, 0) + " bytes", "level: at most +16 bytes", each - events <= 16});
}
