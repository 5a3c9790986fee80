#include "testing/simulator/CallLog.h"

namespace simulator {

void CallLog::Add(Call& call) {
    call.index = next_++;
    if (!recording_) return;
    calls_.push_back(call);
    ++counts_[call.function];
}

void CallLog::Forget() {
    calls_.clear();
    counts_.clear();
}

std::size_t CallLog::Count(std::string_view function) const {
    const auto found = counts_.find(function);
    return found != counts_.end() ? found->second : 0;
}

}  // namespace simulator
