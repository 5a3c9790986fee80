// Closes sessions with their lights on, in each way in which a host may do so: the touchpad must be
// dark afterwards.
//
//   soak_closings [CLOSINGS_OF_EACH_MODE [detachable]]
#include <chrono>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>

#include "testing/soak/ClosingModes.h"
#include "testing/soak/Figures.h"
#include "testing/soak/ProcessFigures.h"

namespace {

using namespace soak;

// After this time the writer thread sleeps, as it does most of the time in a host. The closing must
// wake it for the queued reports and write its own after those.
constexpr std::chrono::milliseconds kIdle{15};

class Closings {
 public:
    Closings(std::int64_t count, bool detachable)
        : count_(count), figures_(detachable ? "closings, detachable" : "closings") {
        TouchpadLayout layout;
        if (detachable) layout.productString = L"Vela Detachable Touchpad";
        touchpad_ = SoakTouchpad::Make(layout);
    }

    int Run() {
        for (const ClosingMode& mode : ClosingModes()) RunMode(mode);
        figures_.Print();
        return figures_.ExitCode();
    }

 private:
    void RunMode(const ClosingMode& mode) {
        std::int64_t neverLit = 0;
        std::int64_t lit = 0;
        for (std::int64_t i = 0; i < count_; ++i) {
            touchpad_->ForgetWritten();
            if (!OpenAndLight(mode)) ++neverLit;
            mode.close(agent_, *touchpad_);
            const std::optional<Bytes> lights = touchpad_->LightsAfterClosing();
            if (lights && !IsDark(*lights)) ++lit;
        }
        const std::string of = " of " + std::to_string(count_);
        figures_.Judge(std::string(mode.name) + ": lit", std::to_string(lit) + of, lit == 0);
        if (neverLit > 0) {
            figures_.Judge(std::string(mode.name) + ": never lit before",
                           std::to_string(neverLit) + of, false);
        }
        PrintLine(std::string("closed: ") + mode.name + ", " + std::to_string(lit) + of + " lit");
    }

    bool OpenAndLight(const ClosingMode& mode) {
        if (agent_.Init() != VELA_INIT_OPEN) return false;
        mode.light(agent_);
        if (agent_.UpdateVelaState() == 0) return false;
        const auto lights = touchpad_->LightsBeforeRequest({virtual_touchpad::kLightReportId});
        std::this_thread::sleep_for(kIdle);
        return lights && !IsDark(*lights);
    }

    const std::int64_t count_;
    Agent agent_;
    std::unique_ptr<SoakTouchpad> touchpad_;
    Figures figures_;
};

}  // namespace

int main(int argc, char** argv) {
    const std::int64_t count = argc > 1 ? std::atol(argv[1]) : 1000;
    const bool detachable = argc > 2;
    int exitCode = 1;
    try {
        exitCode = Closings(count, detachable).Run();
    } catch (const std::exception& error) {
        PrintLine(std::string("ended by: ") + error.what());
    }
    if (detachable) LeaveAtOnce(exitCode);
    return exitCode;
}
