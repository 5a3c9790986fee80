#include "testing/soak/native/StuckWrites.h"

#include <algorithm>
#include <atomic>
#include <optional>
#include <string>
#include <thread>

#include "include/VelaAgent.h"
#include "testing/fuzz/FuzzDevice.h"
#include "testing/soak/native/Situations.h"

namespace soak {
namespace {

using simulator::Call;
using simulator::Device;
using simulator::Fault;
using simulator::Machine;
using simulator::WriteBehaviour;

constexpr std::int64_t kWriteLimitMs = 30000;

// Counts the waits for a write, the only waits of the agent with this time limit.
class WaitCount {
 public:
    WaitCount() {
        const std::string limit = std::to_string(kWriteLimitMs);
        Machine::Get().SetFaultPolicy([this, limit](const Call& call) {
            if (call.function == "WaitForSingleObject" &&
                call.arguments.find(limit) != std::string::npos) {
                ++count_;
            }
            return std::optional<Fault>();
        });
    }
    ~WaitCount() { Machine::Get().SetFaultPolicy(nullptr); }
    WaitCount(const WaitCount&) = delete;
    WaitCount& operator=(const WaitCount&) = delete;

    std::int64_t Count() const { return count_; }

 private:
    std::atomic<std::int64_t> count_{0};
};

// Reports are written in the order of their queue, so the state request comes last.
bool WaitUntilAllIsWritten(const Device& touchpad) {
    if (UpdateVelaState() == 0) return false;
    std::size_t count = 1;
    do {
        if (!touchpad.WaitForOutputs(count)) return false;
        count = touchpad.Outputs().size() + 1;
    } while (touchpad.Outputs().back()[0] != virtual_touchpad::kRequestReportId);
    return true;
}

// Closes on a thread of its own, and lets the writes expire at a random moment meanwhile.
bool CloseAndExpire(Random& random) {
    std::atomic<bool> closed{false};
    std::thread closing([&] { closed = UnInit() == 1; });
    for (std::uint32_t i = Below(random, 50); i > 0; --i) std::this_thread::yield();
    Machine::Get().ExpireTimedWaits(true);
    closing.join();
    Machine::Get().ExpireTimedWaits(false);
    return closed;
}

}  // namespace

StuckClosings CloseWithStuckWrites(Stuck stuck, std::int64_t cycles) {
    const auto touchpad =
        kit::EmptyMachine().Plug(kit::Describe(virtual_touchpad::TouchpadLayout{}));
    Random random(std::random_device{}());
    StuckClosings closings;
    for (; closings.cycles < cycles; ++closings.cycles) {
        touchpad->ForgetOutputs();
        const WaitCount waits;
        if (OpenSession() != VELA_INIT_OPEN || !Light()) ++closings.wrong;
        if (!WaitUntilAllIsWritten(*touchpad)) ++closings.wrong;
        touchpad->SetWriteBehaviour(WriteBehaviour::Hold);
        SetButtonBreathing(VELA_BUTTON_CHAT, 0);
        if (!touchpad->WaitForHeldWrites()) ++closings.wrong;
        if (stuck == Stuck::OneWrite) touchpad->SetWriteBehaviour(WriteBehaviour::Pend);
        if (!CloseAndExpire(random)) ++closings.wrong;

        // Each write is waited for once; those that did not arrive have expired.
        const auto arrived = static_cast<std::int64_t>(touchpad->Outputs().size());
        const std::int64_t expired = waits.Count() - arrived;
        closings.longestMs = (std::max)(closings.longestMs, expired * kWriteLimitMs);
        touchpad->SetWriteBehaviour(WriteBehaviour::Pend);
        if (touchpad->OpenHandles() != 0 || touchpad->HeldWrites() != 0) ++closings.wrong;
    }
    return closings;
}

}  // namespace soak
