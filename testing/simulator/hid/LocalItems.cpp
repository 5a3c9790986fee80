#include "testing/simulator/hid/LocalItems.h"

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
        case ItemTag::Delimiter:
            item.Refuse("delimited usage sets are not simulated");
        default:
            return TakeIndex(item);
    }
}

bool LocalItems::TakeIndex(const Item& item) {
    const auto index = static_cast<USHORT>(item.value);
    switch (item.tag) {
        case ItemTag::StringIndex:
            strings_.AddIndex(index);
            return true;
        case ItemTag::StringMinimum:
            strings_.AddMinimum(index);
            return true;
        case ItemTag::StringMaximum:
            strings_.AddMaximum(index);
            return true;
        case ItemTag::DesignatorIndex:
            designators_.AddIndex(index);
            return true;
        case ItemTag::DesignatorMinimum:
            designators_.AddMinimum(index);
            return true;
        case ItemTag::DesignatorMaximum:
            designators_.AddMaximum(index);
            return true;
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
    std::vector<DeclaredUsages> declared = std::exchange(usages_, {});
    const DeclaredIndices strings = std::exchange(strings_, {});
    const DeclaredIndices designators = std::exchange(designators_, {});
    for (std::size_t i = 0; i < declared.size(); ++i) {
        declared[i].strings = strings.OfDeclaration(i);
        declared[i].designators = designators.OfDeclaration(i);
    }
    return declared;
}

}  // namespace simulator::hid
