// The faults that a test has asked for.
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

// Used under the machine's lock.
class FaultScript {
 public:
    void FailNext(std::string_view function, Fault fault, std::size_t skip);
    void FailAlways(std::string_view function, Fault fault);
    void StopFailing(std::string_view function);
    void SetPolicy(FaultPolicy policy);

    // The scripted fault for this call, which uses it up.
    std::optional<Fault> Take(std::string_view function);
    // For calls that no scripted fault takes; null when there is none. Shared, as it is asked
    // outside the lock while a test may replace it.
    std::shared_ptr<const FaultPolicy> Policy() const { return policy_; }

 private:
    struct Once {
        std::size_t skip = 0;  // counted down while this one is the next to serve
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
