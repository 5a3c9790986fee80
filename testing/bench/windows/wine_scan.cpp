// A scan of this machine as it is, with the virtual touchpad. The vendor file is left out: it lies
// beside the DLL, and these objects of it are in a program.
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
