// The local items: usages declared for the next main item only.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <windows.h>
#include <hidpi.h>

#include "testing/simulator/hid/DeclaredIndices.h"
#include "testing/simulator/hid/DescriptorItems.h"

namespace simulator::hid {

struct UsageAndPage {
    USAGE page = 0;
    USAGE usage = 0;
};

// One Usage item, or one Usage Minimum and Usage Maximum. Two equal values are still a range.
struct DeclaredUsages {
    USAGE page = 0;
    USAGE minimum = 0;
    USAGE maximum = 0;
    bool isRange = false;
    // A host may display these; they do not affect any report.
    IndexRange strings{};
    IndexRange designators{};

    std::uint32_t Count() const { return static_cast<std::uint32_t>(maximum - minimum) + 1; }
};

class LocalItems {
 public:
    // Returns false when the item is not a local one.
    bool Take(const Item& item);

    // Returns the usages declared since the last main item, in declaration order. A usage of four
    // bytes contains its usage page. A shorter one takes `page`, the one in force at the main item,
    // whatever the page was where the usage stood.
    std::vector<DeclaredUsages> Collect(const Item& mainItem, USAGE page);

 private:
    // Without a page: the main item's.
    struct DeclaredUsage {
        std::optional<USAGE> page;
        USAGE usage = 0;
    };
    struct Declaration {
        DeclaredUsage minimum, maximum;
        bool isRange = false;
    };

    static DeclaredUsage UsageOf(const Item& item);
    bool TakeIndex(const Item& item);
    void TakeBound(const Item& item, std::optional<DeclaredUsage>& bound);
    void TakeDelimiter(const Item& item);
    void Declare(const Declaration& declaration);

    std::vector<Declaration> declared_;
    std::optional<DeclaredUsage> minimum_;
    std::optional<DeclaredUsage> maximum_;
    bool isInSet_ = false;
    bool isSetDeclared_ = false;
    DeclaredIndices strings_;
    DeclaredIndices designators_;
};

}  // namespace simulator::hid
