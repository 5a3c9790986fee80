// Opens and closes sessions on two threads while others make every other call. Every hundred rounds
// all threads are joined: the session must be closed, and the next one must start in the initial
// state and work.
//
//   soak_rounds [ROUNDS [detachable]]
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "testing/simulator/Machine.h"
#include "testing/soak/Figures.h"
#include "testing/soak/LightRequests.h"
#include "testing/soak/LivelyCallbacks.h"
#include "testing/soak/ProcessFigures.h"
#include "testing/soak/native/Rounds.h"

namespace {

using namespace soak;
using simulator::Machine;

constexpr std::int64_t kRoundsOfABatch = 100;
constexpr wchar_t kSessionName[] = L"Global\\VelaDeviceMutex";

class Judge {
 public:
    Judge(std::int64_t rounds, bool detachable)
        : rounds_(rounds), figures_(detachable ? "rounds, detachable" : "rounds") {
        if (detachable) layout_.productString = L"Vela Detachable Touchpad";
        touchpad_ = SoakTouchpad::Make(layout_);
        owner_ = std::make_unique<SessionOwner>(agent_, *touchpad_);
        host_ = std::make_unique<Rounds>(agent_, *touchpad_);
    }

    int Run() {
        for (std::int64_t done = 0; done < rounds_; done += kRoundsOfABatch) {
            // The first half makes no such query, which may leave a handle of the device's mutex.
            const bool queriesPresence = done >= rounds_ / 2;
            host_->QueryPresence(queriesPresence);
            RunBatch((std::min)(kRoundsOfABatch, rounds_ - done), queriesPresence);
            if (++batches_ % 10 == 0) PrintLine("rounds " + std::to_string(done + kRoundsOfABatch));
        }
        JudgeAll();
        figures_.Print();
        return figures_.ExitCode();
    }

 private:
    void RunBatch(std::int64_t count, bool mayLeaveTheName) {
        touchpad_->ForgetWritten();
        host_->Run(count);
        // The threads may have left the haptic session open, whose file handle would be counted.
        agent_.UnInitHapticTP();
        CheckClosedSession(mayLeaveTheName);
        owner_->Open(false);
        if (IsInUse()) ++inUseAfterOpening_;
        const std::string difference = CompareLights(agent_, *touchpad_, layout_, *owner_, random_);
        if (!difference.empty()) {
            ++doesNotWork_;
            PrintLine("session afterwards: " + difference);
        }
        owner_->Close();
        CheckClosedSession(mayLeaveTheName);
    }

    void CheckClosedSession(bool mayLeaveTheName) {
        const auto lights = touchpad_->LightsAfterClosing();
        if (lights && !IsDark(*lights)) ++lit_;
        if (IsInUse()) ++inUseAfterClosing_;
        if (!mayLeaveTheName && Machine::Get().MutexExists(kSessionName)) ++named_;
        filesOpen_ += OpenHandles()["File"];
    }

    // Returns false in a session that was just opened, and without a session.
    bool IsInUse() const {
        bool buttons = false;
        for (std::uint32_t button = 0; button < 4; ++button) {
            if (agent_.IsSingleButtonEnabled(button) != 0) buttons = true;
        }
        return buttons || agent_.IsActivated() != 0 || agent_.IsFeatureEnabled() != 0;
    }

    void JudgeAll() {
        const std::int64_t sessions = host_->Closings() + owner_->Sessions();
        const std::int64_t events = OpenHandles()["Event"] - 2 * sessions;
        const std::vector<std::string> misuse = Machine::Get().Misuse();
        const auto none = [this](const char* name, std::int64_t count) {
            figures_.Judge(name, count, count == 0);
        };
        figures_.Note("rounds", rounds_);
        figures_.Judge("calls meanwhile", host_->Calls(), host_->Calls() > 0);
        figures_.Judge("presses told", PressesReported(), PressesReported() > 0);
        figures_.Note("sessions closed", sessions);
        none("times that Init was refused", host_->Refused());
        none("closings that left a light on", lit_);
        none("closings that left something switched on", inUseAfterClosing_);
        none("closings that left the session's name", named_);
        none("file handles left by closings", filesOpen_);
        none("event handles more, less two a session", events);
        none("sessions afterwards with something switched on", inUseAfterOpening_);
        none("sessions afterwards with other lights", doesNotWork_);
        none("misuses of the platform", static_cast<std::int64_t>(misuse.size()));
        for (std::size_t i = 0; i < std::min<std::size_t>(misuse.size(), 10); ++i) {
            PrintLine("misuse: " + misuse[i]);
        }
    }

    const std::int64_t rounds_;
    TouchpadLayout layout_;
    Agent agent_;
    std::unique_ptr<SoakTouchpad> touchpad_;
    std::unique_ptr<SessionOwner> owner_;
    std::unique_ptr<Rounds> host_;
    Random random_{std::random_device{}()};
    Figures figures_;
    std::int64_t batches_ = 0;
    std::int64_t lit_ = 0;
    std::int64_t inUseAfterClosing_ = 0;
    std::int64_t inUseAfterOpening_ = 0;
    std::int64_t named_ = 0;
    std::int64_t filesOpen_ = 0;
    std::int64_t doesNotWork_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    const std::int64_t rounds = argc > 1 ? std::atol(argv[1]) : 10000;
    const bool detachable = argc > 2;
    const int exitCode = Judge(rounds, detachable).Run();
    if (detachable) LeaveAtOnce(exitCode);
    return exitCode;
}
