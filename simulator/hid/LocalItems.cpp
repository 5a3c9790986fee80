#include "simulator/hid/LocalItems.h"

#include <utility>

namespace simulator::hid {
namespace {

UsageAndPage UsageOf(const Item& item, USAGE page) {
    if (item.size == 4) page = static_cast<USAGE>(item.value >> 16);
    return {page, static_cast<USAGE>(item.value & 0xFFFF)};
}

}  // namespace

bool LocalItems::Take(const Item& item, USAGE page) {
    const UsageAndPage usage = UsageOf(item, page);
    switch (item.tag) {
        case ItemTag::Usage:
            usages_.push_back({usage.page, usage.usage, usage.usage, false});
            return true;
        case ItemTag::UsageMinimum:
            TakeBound(item, usage, minimum_);
            return true;
        case ItemTag::UsageMaximum:
            TakeBound(item, usage, maximum_);
            return true;
        case ItemTag::DesignatorIndex:
        case ItemTag::DesignatorMinimum:
        case ItemTag::DesignatorMaximum:
        case ItemTag::StringIndex:
        case ItemTag::StringMinimum:
        case ItemTag::StringMaximum:
            return true;  // they change no report; the capability records leave their indices 0
        case ItemTag::Delimiter:
            item.Refuse("delimited usage sets are not simulated");
        default:
            return false;
    }
}

void LocalItems::TakeBound(const Item& item, UsageAndPage usage,
                           std::optional<UsageAndPage>& bound) {
    if (bound) item.Refuse("a usage range with two bounds of one kind");
    bound = usage;
    if (!minimum_ || !maximum_) return;
    const UsageAndPage minimum = *std::exchange(minimum_, std::nullopt);
    const UsageAndPage maximum = *std::exchange(maximum_, std::nullopt);
    if (minimum.page != maximum.page) item.Refuse("a usage range over two pages");
    if (minimum.usage > maximum.usage) item.Refuse("a usage range that ends before it starts");
    usages_.push_back({minimum.page, minimum.usage, maximum.usage, true});
}

std::vector<DeclaredUsages> LocalItems::Collect(const Item& mainItem) {
    if (minimum_ || maximum_) mainItem.Refuse("half a usage range");
    return std::exchange(usages_, {});
}

}  // namespace simulator::hid
