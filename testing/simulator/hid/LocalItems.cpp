#include "testing/simulator/hid/LocalItems.h"

#include <utility>

namespace simulator::hid {

LocalItems::DeclaredUsage LocalItems::UsageOf(const Item& item) {
    DeclaredUsage declared;
    if (item.size == 4) declared.page = static_cast<USAGE>(item.value >> 16);
    declared.usage = static_cast<USAGE>(item.value & 0xFFFF);
    return declared;
}

bool LocalItems::Take(const Item& item) {
    switch (item.tag) {
        case ItemTag::Usage:
            Declare({UsageOf(item), UsageOf(item), false});
            return true;
        case ItemTag::UsageMinimum:
            TakeBound(item, minimum_);
            return true;
        case ItemTag::UsageMaximum:
            TakeBound(item, maximum_);
            return true;
        case ItemTag::Delimiter:
            TakeDelimiter(item);
            return true;
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

void LocalItems::TakeBound(const Item& item, std::optional<DeclaredUsage>& bound) {
    if (bound) item.Refuse("a usage range with two bounds of one kind");
    bound = UsageOf(item);
    if (!minimum_ || !maximum_) return;
    const DeclaredUsage minimum = *std::exchange(minimum_, std::nullopt);
    const DeclaredUsage maximum = *std::exchange(maximum_, std::nullopt);
    if (minimum.usage > maximum.usage) item.Refuse("a usage range that ends before it starts");
    Declare({minimum, maximum, true});
}

void LocalItems::TakeDelimiter(const Item& item) {
    const bool opens = item.value == 1;
    if (item.value > 1 || opens == isInSet_) item.Refuse("a delimiter out of place");
    if (opens && (minimum_ || maximum_)) item.Refuse("half a usage range");
    isInSet_ = opens;
    isSetDeclared_ = false;
}

// The usages of a delimited set are alternatives for one field; the first of them is used.
void LocalItems::Declare(const Declaration& declaration) {
    if (!isSetDeclared_) declared_.push_back(declaration);
    isSetDeclared_ = isInSet_;
}

std::vector<DeclaredUsages> LocalItems::Collect(const Item& mainItem, USAGE page) {
    if (minimum_ || maximum_) mainItem.Refuse("half a usage range");
    if (isInSet_) mainItem.Refuse("a delimited set of usages that does not end");
    const LocalItems locals = std::exchange(*this, {});
    std::vector<DeclaredUsages> usages;
    for (const auto& [minimum, maximum, isRange] : locals.declared_) {
        const USAGE ownPage = minimum.page.value_or(page);
        if (maximum.page.value_or(page) != ownPage) mainItem.Refuse("a usage range over two pages");
        usages.push_back({ownPage, minimum.usage, maximum.usage, isRange,
                          locals.strings_.OfDeclaration(usages.size()),
                          locals.designators_.OfDeclaration(usages.size())});
    }
    return usages;
}

}  // namespace simulator::hid
