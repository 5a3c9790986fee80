// A list of output usages, one per button at most. A report is composed for every press and every
// request of the host, so the list avoids the heap.
#pragma once

#include <array>

#include <windows.h>

#include "hid/HidHeaders.h"
#include "touchpad/ButtonState.h"

namespace vela {

class ButtonUsages {
 public:
    ButtonUsages() = default;
    explicit ButtonUsages(USAGE only) { Add(only); }

    // May be called kMeetingButtonCount times at most.
    void Add(USAGE usage) { usages_.at(count_++) = usage; }
    bool IsEmpty() const { return count_ == 0; }
    ULONG Count() const { return count_; }
    USAGE* Data() { return usages_.data(); }
    const USAGE* begin() const { return usages_.data(); }
    const USAGE* end() const { return usages_.data() + count_; }

 private:
    std::array<USAGE, kMeetingButtonCount> usages_{};
    ULONG count_ = 0;
};

}  // namespace vela
