#include "testing/faults/CallWatch.h"

#include <atomic>
#include <sstream>
#include <utility>

#include "include/VelaAgent.h"
#include "testing/faults/IdleThreads.h"

namespace faults {
namespace {

constexpr unsigned kUnknownThread = ~0U;

std::atomic<unsigned> threads{0};
// The platform reuses thread ids after a join; these numbers are unique in a run.
thread_local unsigned threadNumber = kUnknownThread;

// A closing session writes its last report on the host's thread, while the writer may still write
// earlier ones, or be stopped before. At this call the host waits for the writer, so that every run
// makes the same calls.
bool RacesWithWriter(const WatchedCall& call) {
    return call.thread == 0 && call.function == "HidP_UnsetUsages" && call.step == "UnInit";
}

}  // namespace

std::string WatchedCall::Text() const {
    return step + ": thread " + std::to_string(thread) + ", " + function + "(" + arguments + ") #" +
           std::to_string(number);
}

CallWatch::CallWatch(Chooser chooser) : chooser_(std::move(chooser)) {
    // Threads of an earlier run that still sleep keep their numbers.
    threads = 0;
    threadNumber = threads++;
    simulator::Machine& machine = simulator::Machine::Get();
    machine.RecordCalls(false);
    machine.SetFaultPolicy([this](const simulator::Call& call) { return Watch(call); });
}

CallWatch::~CallWatch() { Stop(); }

void CallWatch::Stop() { simulator::Machine::Get().SetFaultPolicy(nullptr); }

void CallWatch::Begin(const std::string& step) {
    const std::lock_guard<std::mutex> lock(mutex_);
    step_ = step;
}

std::vector<WatchedCall> CallWatch::Calls() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return calls_;
}

std::optional<simulator::Fault> CallWatch::Watch(const simulator::Call& call) {
    if (threadNumber == kUnknownThread) threadNumber = threads++;
    std::optional<simulator::Fault> fault;
    WatchedCall watched;
    watched.thread = threadNumber;
    watched.function = call.function;
    watched.arguments = call.arguments;
    watched.active = IsActivated() && IsFeatureEnabled();
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        watched.step = step_;
        watched.number = counts_[{watched.thread, watched.function}]++;
        fault = chooser_(watched);
        watched.failed = fault.has_value();
        calls_.push_back(watched);
    }
    if (RacesWithWriter(watched)) WaitUntilOthersSleep();
    return fault;
}

std::string ToText(const std::vector<WatchedCall>& calls) {
    std::ostringstream text;
    for (const WatchedCall& call : calls) {
        text << call.thread << '\t' << call.function << '\t' << call.number << '\t'
             << call.arguments << '\t' << call.step << '\t' << call.active << '\n';
    }
    return text.str();
}

std::vector<WatchedCall> CallsFromText(const std::string& text) {
    std::vector<WatchedCall> calls;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        const auto next = [&fields] {
            std::string field;
            std::getline(fields, field, '\t');
            return field;
        };
        WatchedCall call;
        call.thread = static_cast<unsigned>(std::stoul(next()));
        call.function = next();
        call.number = std::stoul(next());
        call.arguments = next();
        call.step = next();
        call.active = next() == "1";
        calls.push_back(call);
    }
    return calls;
}

const WatchedCall* Neighbour(const std::vector<WatchedCall>& calls, std::size_t index,
                             int direction) {
    // Below index 0 the unsigned index wraps around, which ends the loop too.
    for (std::size_t i = index + static_cast<std::size_t>(direction); i < calls.size();
         i += static_cast<std::size_t>(direction)) {
        if (calls[i].thread == calls[index].thread) return &calls[i];
    }
    return nullptr;
}

}  // namespace faults
