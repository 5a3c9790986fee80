// The way from a detachable touchpad to the host and back. The process is not unloaded, as the
// library then keeps a thread that nobody joins.
#include "include/VelaAgent.hpp"
#include "testing/bench/Run.h"
#include "testing/bench/windows/PressLatencies.h"

namespace {

using namespace bench;

constexpr char kLit[] = "Wine: press to the light report, detachable touchpad";
constexpr wchar_t kDetachable[] = L"Vela Detachable Touchpad";
constexpr WritesOn kTwo = WritesOn::AThreadOfItsOwn;

constexpr LatencyRow kRows[] = {
    {kLit, kDetachable, false, "the same, writing on a second thread, and the same queries", kTwo,
     Queries::Connection, &Latencies::lit, 1.05},
    {kLit,
     kDetachable,
     false,
     "the same, writing on a second thread",
     kTwo,
     Queries::None,
     &Latencies::lit,
     {}},
};

}  // namespace

int main(int argc, char** argv) {
    vela_agent::LeaveProcess(Run(argc, argv, [] {
        for (const LatencyRow& row : kRows) RegisterLatencies(row);
    }));
}
