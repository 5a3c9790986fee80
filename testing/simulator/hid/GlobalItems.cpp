#include "testing/simulator/hid/GlobalItems.h"

#include <algorithm>
#include <iterator>

namespace simulator::hid {
namespace {

struct UnsignedItem {
    ItemTag tag;
    std::uint32_t GlobalItems::*value;
};
constexpr UnsignedItem kUnsignedItems[] = {
    {ItemTag::ReportSize, &GlobalItems::reportSize},
    {ItemTag::ReportCount, &GlobalItems::reportCount},
    {ItemTag::Unit, &GlobalItems::unit},
};

struct SignedItem {
    ItemTag tag;
    std::int32_t GlobalItems::*value;
};
constexpr SignedItem kSignedItems[] = {
    {ItemTag::LogicalMinimum, &GlobalItems::logicalMinimum},
    {ItemTag::LogicalMaximum, &GlobalItems::logicalMaximum},
    {ItemTag::PhysicalMinimum, &GlobalItems::physicalMinimum},
    {ItemTag::PhysicalMaximum, &GlobalItems::physicalMaximum},
    {ItemTag::UnitExponent, &GlobalItems::unitExponent},
};

// Windows starts devices whose descriptors contain these, and nothing depends on them.
constexpr ItemTag kReservedItems[] = {ItemTag::ReservedGlobal12, ItemTag::ReservedGlobal13,
                                      ItemTag::ReservedGlobal14, ItemTag::ReservedGlobal15};

}  // namespace

bool GlobalItems::Take(const Item& item) {
    for (const UnsignedItem& known : kUnsignedItems) {
        if (known.tag != item.tag) continue;
        this->*known.value = item.value;
        return true;
    }
    for (const SignedItem& known : kSignedItems) {
        if (known.tag != item.tag) continue;
        this->*known.value = item.SignedValue();
        return true;
    }
    if (item.tag == ItemTag::UsagePage) {
        if (item.value > 0xFFFF) item.Refuse("a usage page has 16 bits");
        usagePage = static_cast<USAGE>(item.value);
        return true;
    }
    if (item.tag == ItemTag::ReportId) {
        if (item.value == 0 || item.value > 0xFF) item.Refuse("report ids are 1 to 255");
        reportId = static_cast<std::uint8_t>(item.value);
        return true;
    }
    return std::find(std::begin(kReservedItems), std::end(kReservedItems), item.tag) !=
           std::end(kReservedItems);
}

}  // namespace simulator::hid
