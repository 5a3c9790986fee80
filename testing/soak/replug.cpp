// Pulls the plug ten thousand times while calls run, on the simulated platform. Each time the
// session must close, and the touchpad must be found once it is back.
//
//   soak_replug [CYCLES_OF_EACH_SITUATION]
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>

#include "include/VelaAgent.h"
#include "testing/fuzz/FuzzDevice.h"
#include "testing/soak/Figures.h"
#include "testing/soak/ProcessFigures.h"
#include "testing/soak/SessionOwner.h"
#include "testing/soak/native/Situations.h"
#include "testing/soak/native/StuckWrites.h"

namespace {

using namespace soak;
using simulator::Device;
using simulator::Machine;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Covers the two events that a session leaves open, with their entries in the simulator's tables.
constexpr std::int64_t kHeapOfASession = 1024;

class Replugging {
 public:
    Replugging(const Situation& situation, std::int64_t cycles)
        : situation_(situation),
          cycles_(cycles),
          touchpad_(kit::EmptyMachine().Plug(kit::Describe(TouchpadLayout{}))) {}

    void Run() {
        // The simulator's tables grow in steps, so the first cycles are not counted.
        const std::int64_t begin = cycles_ / 10;
        const std::size_t descriptors = Machine::Get().PreparsedDataInUse();
        std::int64_t sessions = 0;
        std::int64_t heap = 0;
        for (std::int64_t cycle = 0; cycle < cycles_; ++cycle) {
            if (cycle == begin) {
                sessions = SessionsOpened();
                heap = HeapInUse();
            }
            if (!RunCycle()) ++wrong_;
        }
        heapASession_ = (HeapInUse() - heap) / (SessionsOpened() - sessions);
        descriptorsMore_ =
            static_cast<std::int64_t>(Machine::Get().PreparsedDataInUse() - descriptors);
        PrintLine(std::string("unplugged: ") + situation_.name + ", " + std::to_string(cycles_) +
                  " times");
    }

    void JudgeAll(Figures& figures) const {
        const std::string name = situation_.name;
        const Machine& machine = Machine::Get();
        std::map<std::string, std::int64_t> handles = OpenHandles();
        const std::int64_t events = handles["Event"] - 2 * (SessionsOpened() - before_);
        figures.Judge(name + ": cycles", cycles_, wrong_ == 0 && machine.Misuse().empty());
        figures.Judge(name + ": longest closing, ms", longestClosing_.count(),
                      longestClosing_ <= kLongestClosing);
        figures.Judge(name + ": handles more", handles["File"] + handles["devices"] + events,
                      handles["File"] + handles["devices"] + events == 0);
        figures.Judge(name + ": threads more", ThreadCount() - threads_, ThreadCount() == threads_);
        figures.Judge(name + ": heap more, bytes a session", heapASession_,
                      heapASession_ < kHeapOfASession && machine.GlobalMemoryInUse() == 0);
        figures.Judge(name + ": parsed descriptors more", descriptorsMore_,
                      descriptorsMore_ <= (situation_.mayTurnDown ? cycles_ : 0));
    }

 private:
    bool RunCycle() {
        const bool isOpen = OpenSession() == VELA_INIT_OPEN;
        const bool isRight = isOpen && situation_.pull(*touchpad_, random_);
        const auto begin = steady_clock::now();
        UnInit();
        const auto took = std::chrono::duration_cast<milliseconds>(steady_clock::now() - begin);
        longestClosing_ = (std::max)(longestClosing_, took);
        const bool isClosed = touchpad_->OpenHandles() == 0 && UnInit() == 0;
        touchpad_->ForgetOutputs();
        touchpad_->ForgetFeatureWrites();
        touchpad_->PlugIn();
        return isRight && isClosed;
    }

    const Situation& situation_;
    const std::int64_t cycles_;
    const std::shared_ptr<Device> touchpad_;
    const std::int64_t before_ = SessionsOpened();
    const std::int64_t threads_ = ThreadCount();
    Random random_{std::random_device{}()};
    std::int64_t wrong_ = 0;
    milliseconds longestClosing_{0};
    std::int64_t heapASession_ = 0;
    std::int64_t descriptorsMore_ = 0;
};

void JudgeStuckWrites(Figures& figures, std::int64_t cycles) {
    const StuckClosings one = CloseWithStuckWrites(Stuck::OneWrite, cycles);
    figures.Judge("one write stuck: closings", one.cycles, one.wrong == 0);
    figures.Judge("one write stuck: closing, simulated ms", one.longestMs,
                  one.longestMs <= kLongestClosing.count());
    // Here each of the closing's own writes waits for its time limit too.
    const StuckClosings every = CloseWithStuckWrites(Stuck::EveryWrite, cycles);
    figures.Judge("every write stuck: closings", every.cycles, every.wrong == 0);
    figures.Note("every write stuck: closing, simulated ms", every.longestMs);
}

// The process keeps the first product string that it reads. Without one the touchpad would count as
// detachable, so it is read before any plug is pulled.
void LearnProductString() {
    const auto touchpad = kit::EmptyMachine().Plug(kit::Describe(TouchpadLayout{}));
    Init();
    IsDetachable();
    UnInit();
}

}  // namespace

int main(int argc, char** argv) {
    const std::int64_t cycles = argc > 1 ? std::atol(argv[1]) : 2000;
    Figures figures("replug");
    LearnProductString();
    // This comes first: to expire a wait the simulator searches all handles, and sessions leave
    // some.
    JudgeStuckWrites(figures, std::max<std::int64_t>(cycles / 4, 1));
    for (const Situation& situation : Situations()) {
        Replugging replugging(situation, cycles);
        replugging.Run();
        replugging.JudgeAll(figures);
    }
    figures.Print();
    return figures.ExitCode();
}
