// All reports of one type (input, output or feature) of a top-level collection.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "testing/simulator/hid/Capability.h"
#include "testing/simulator/hid/MainItem.h"

namespace simulator::hid {

class ReportLayout {
 public:
    // Appends the item's fields to its report. Throws DescriptorError, without the item's offset,
    // for fields that make no sense or exceed the platform's counters.
    void Add(const MainItem& item);

    // The lists are in the platform's order: main items as declared, within each the last declared
    // usage first.
    const std::vector<Capability>& Buttons() const { return buttons_; }
    const std::vector<Capability>& Values() const { return values_; }
    USHORT DataIndices() const { return static_cast<USHORT>(dataIndices_); }

    // The id byte counts even without report ids. 0 when there is no report of the type.
    std::size_t LongestReport() const;
    std::optional<std::size_t> ReportLength(UCHAR reportId) const;
    std::vector<UCHAR> ReportIds() const;

    bool EndsOnBytes() const;

    // The maximum number of usages that GetUsages returns; page 0 stands for every page.
    ULONG MaxUsageListLength(USAGE page) const;

 private:
    std::uint32_t Extend(const GlobalItems& globals);
    void NumberData(std::vector<Capability>& capabilities);
    void List(const Capability& capability, bool isButton);

    std::vector<Capability> buttons_;
    std::vector<Capability> values_;
    std::uint32_t dataIndices_ = 0;
    std::uint32_t usageListLength_ = 0;
    std::map<UCHAR, std::uint32_t> payloadBits_;  // by report id
};

}  // namespace simulator::hid
