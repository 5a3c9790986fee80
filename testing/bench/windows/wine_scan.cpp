// Scans this machine with the virtual touchpad. No vendor file is read: it lies beside the DLL,
// whose object files are linked into this program.
#include "testing/bench/Run.h"
#include "testing/bench/ScanInTurns.h"
#include "testing/virtual-touchpad/plug/Plug.h"

int main(int argc, char** argv) {
    using namespace bench;
    return Run(argc, argv, [] {
        Register({"Wine: scan", kScanPeer, kMedians, 1.1}, 200,
                 [](benchmark::State& state, const Row& row) {
                     virtual_touchpad::UnplugAll();
                     virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
                     ScanInTurns(state, row);
                 })
            ->UseManualTime();
    });
}
