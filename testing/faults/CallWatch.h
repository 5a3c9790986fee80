// Watches every platform call of a run, and makes chosen ones fail.
//
// The order of calls is fixed within a thread, but not between threads: a call is identified by its
// thread, its function and its number among the thread's calls of that function.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "testing/simulator/Machine.h"

namespace faults {

struct WatchedCall {
    unsigned thread = 0;  // 0: the host's; the others in the order of their first calls
    std::string function;
    std::size_t number = 0;
    std::string arguments;
    std::string step;     // what the host was doing
    bool active = false;  // the touchpad was activated and its feature on: its lights may be lit
    bool failed = false;  // by this watch

    auto Site() const { return std::tie(thread, function, number); }
    std::string Text() const;
};

class CallWatch {
 public:
    using Chooser = std::function<std::optional<simulator::Fault>(const WatchedCall&)>;

    // Starts watching, with the calling thread as the host's. `chooser` decides which calls fail;
    // it is called on the call's own thread, never by two threads at once.
    explicit CallWatch(Chooser chooser);
    ~CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    void Begin(const std::string& step);
    // Stops failing and recording calls.
    void Stop();
    std::vector<WatchedCall> Calls() const;

 private:
    std::optional<simulator::Fault> Watch(const simulator::Call& call);

    const Chooser chooser_;
    mutable std::mutex mutex_;  // guards: all below
    std::string step_;
    std::map<std::pair<unsigned, std::string>, std::size_t> counts_;
    std::vector<WatchedCall> calls_;
};

// Convert calls to text and back, in the order in which they came. How the threads' calls
// interleave may differ between runs.
std::string ToText(const std::vector<WatchedCall>& calls);
std::vector<WatchedCall> CallsFromText(const std::string& text);

// Returns the call before or after (`direction` -1 or 1) calls[index] on its thread; null at the
// ends.
const WatchedCall* Neighbour(const std::vector<WatchedCall>& calls, std::size_t index,
                             int direction);

}  // namespace faults
