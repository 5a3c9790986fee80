#include "testing/faults/FailedCall.h"

#include <algorithm>
#include <cstdio>

namespace faults {

std::string FailedCall::HexStatus() const {
    char text[16];
    std::snprintf(text, sizeof text, "%x", static_cast<unsigned>(fault.result.value_or(0)));
    return text;
}

bool FailedCall::IsGone() const {
    return std::any_of(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(index),
                       [](const WatchedCall& call) { return call.step == "unplug"; });
}

bool FailedCall::IsDetachable() const {
    return std::any_of(calls.begin(), calls.end(), [](const WatchedCall& call) {
        return call.function == "HidD_GetPreparsedData" && call.step == "Activate(0)";
    });
}

const WatchedCall* FailedCall::Last(const std::string& function) const {
    for (std::size_t i = index + 1; i-- > 0;) {
        if (calls[i].thread == Call().thread && calls[i].function == function) return &calls[i];
    }
    return nullptr;
}

}  // namespace faults
