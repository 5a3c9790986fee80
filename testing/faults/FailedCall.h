// A call that fails, seen in the midst of the calls around it.
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
    // The touchpad was taken away before, and the call would have failed in any case.
    bool IsGone() const;
    // The touchpad is one that can be taken off: before it is lit, it is asked for.
    bool IsDetachable() const;
    // Texts for the log.
    std::string Error() const { return std::to_string(fault.error); }
    std::string Status() const { return std::to_string(fault.result.value_or(0)); }
    std::string HexStatus() const;

    const WatchedCall* Before() const { return Neighbour(calls, index, -1); }
    const WatchedCall* Behind() const { return Neighbour(calls, index, 1); }
    // The last call of this function on the same thread, this one included; null when there is
    // none.
    const WatchedCall* Last(const std::string& function) const;
};

}  // namespace faults
