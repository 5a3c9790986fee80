// The faults that a test has set.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "testing/simulator/Calls.h"

namespace simulator {

using FaultPolicy = std::function<std::optional<Fault>(const Call&)>;

// Callers hold the machine's lock.
class FaultScript {
 public:
    void FailNext(std::string_view function, Fault fault, std::size_t skip);
    void FailAlways(std::string_view function, Fault fault);
    void StopFailing(std::string_view function);
    void SetPolicy(FaultPolicy policy);

    // Returns the fault for this call, if any; one from FailNext is removed.
    std::optional<Fault> Take(std::string_view function);
    // The policy for calls without a scripted fault, or null. Shared because it is called outside
    // the lock, while a test may replace it.
    std::shared_ptr<const FaultPolicy> Policy() const { return policy_; }

 private:
    struct Once {
        std::size_t skip = 0;  // counted down while this is the first in the queue
        Fault fault;
    };
    struct Faults {
        std::deque<Once> next;
        std::optional<Fault> always;
    };

    std::map<std::string, Faults, std::less<>> functions_;
    std::shared_ptr<const FaultPolicy> policy_;
};

}  // namespace simulator
