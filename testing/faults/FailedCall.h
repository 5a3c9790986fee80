// A call that fails, among the other calls of its run.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "testing/faults/CallWatch.h"
#include "testing/faults/Outcome.h"
#include "testing/simulator/Calls.h"

namespace faults {

struct FailedCall {
    const std::vector<WatchedCall>& calls;  // of the run without a failure
    std::size_t index;
    const simulator::Fault& fault;

    const WatchedCall& Call() const { return calls[index]; }
    const std::string& Step() const { return Call().step; }
    bool Has(const std::string& text) const {
        return Call().arguments.find(text) != std::string::npos;
    }
    // The touchpad was unplugged before: the call would have failed anyway.
    bool IsGone() const;
    // The touchpad is detachable: Activate(0) checks that it is there before lighting it.
    bool IsDetachable() const;
    // Texts as the log shows them.
    std::string Error() const { return std::to_string(fault.error); }
    std::string Status() const { return std::to_string(fault.result.value_or(0)); }
    std::string HexStatus() const;

    const WatchedCall* Before() const { return Neighbour(calls, index, -1); }
    const WatchedCall* Behind() const { return Neighbour(calls, index, 1); }
    // Returns the last call of this function on the same thread, up to and including this one; null
    // when there is none.
    const WatchedCall* Last(const std::string& function) const;
};

}  // namespace faults
