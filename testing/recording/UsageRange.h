// The usages of a recorded capability.
#pragma once

#include "tools/recording/CallRecord.h"

namespace recording {

struct UsageRange {
    std::uint16_t page;
    std::uint16_t minimum;
    std::uint16_t maximum;
    bool isRange;

    explicit UsageRange(const Json& record)
        : page(static_cast<std::uint16_t>(NumberOf(record.at("usagePage")))),
          minimum(static_cast<std::uint16_t>(NumberOf(record.at("usages").front()))),
          maximum(static_cast<std::uint16_t>(NumberOf(record.at("usages").back()))),
          isRange(record.at("usages").size() > 1) {}

    std::size_t Count() const { return static_cast<std::size_t>(maximum - minimum) + 1; }
};

}  // namespace recording
