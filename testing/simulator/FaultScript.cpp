#include "testing/simulator/FaultScript.h"

#include <utility>

namespace simulator {

void FaultScript::FailNext(std::string_view function, Fault fault, std::size_t skip) {
    functions_[std::string(function)].next.push_back({skip, fault});
}

void FaultScript::FailAlways(std::string_view function, Fault fault) {
    functions_[std::string(function)].always = fault;
}

void FaultScript::StopFailing(std::string_view function) {
    functions_.erase(std::string(function));
}

void FaultScript::SetPolicy(FaultPolicy policy) {
    policy_ = policy ? std::make_shared<const FaultPolicy>(std::move(policy)) : nullptr;
}

std::optional<Fault> FaultScript::Take(std::string_view function) {
    const auto found = functions_.find(function);
    if (found == functions_.end()) return std::nullopt;
    Faults& faults = found->second;
    if (!faults.next.empty()) {
        Once& once = faults.next.front();
        if (once.skip == 0) {
            const Fault fault = once.fault;
            faults.next.pop_front();
            return fault;
        }
        --once.skip;
    }
    return faults.always;
}

}  // namespace simulator
