#include "testing/simulator/hid/ReportLayout.h"

#include <algorithm>

#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator::hid {
namespace {

// The platform counts report lengths, fields and data indices in 16 bits. The same limit on the
// button fields of a report type prevents a short descriptor from making later calls walk millions
// of fields.
constexpr std::uint32_t kMaxCount = 0xFFFF;
constexpr std::uint32_t kMaxPayloadBits = (kMaxCount - 1) * 8;
constexpr std::uint32_t kMaxFieldBits = 32;

std::size_t BytesOf(std::uint32_t payloadBits) { return 1 + (payloadBits + 7) / 8; }

Capability CapabilityOf(const MainItem& item, const DeclaredUsages& usages,
                        std::uint32_t startBit) {
    Capability capability;
    capability.usages = usages;
    capability.globals = item.globals;
    capability.flags = item.flags;
    capability.isArray = item.IsArray();
    capability.linkCollection = item.linkCollection;
    capability.startBit = startBit;
    return capability;
}

// Every usage of an array shares all of its slots.
std::vector<Capability> ArrayCapabilities(const MainItem& item, std::uint32_t startBit) {
    std::vector<Capability> capabilities;
    std::int64_t index = item.globals.logicalMinimum;
    for (const DeclaredUsages& usages : item.usages) {
        Capability capability = CapabilityOf(item, usages, startBit);
        capability.fieldCount = item.globals.reportCount;
        capability.firstIndex = index;
        index += usages.Count();
        capabilities.push_back(capability);
    }
    return capabilities;
}

// Each usage takes the next field; the last one takes all remaining fields. Usages without a field
// are dropped.
std::vector<Capability> VariableCapabilities(const MainItem& item, std::uint32_t startBit) {
    std::vector<Capability> capabilities;
    std::uint32_t field = 0;
    for (const DeclaredUsages& usages : item.usages) {
        const std::uint32_t left = item.globals.reportCount - field;
        if (left == 0) break;
        Capability capability =
            CapabilityOf(item, usages, startBit + field * item.globals.reportSize);
        capability.fieldCount = std::min(usages.Count(), left);
        capability.usages.maximum = static_cast<USAGE>(usages.minimum + capability.fieldCount - 1);
        field += capability.fieldCount;
        capabilities.push_back(capability);
    }
    capabilities.back().fieldCount += item.globals.reportCount - field;
    return capabilities;
}

}  // namespace

void ReportLayout::Add(const MainItem& item) {
    const std::uint32_t startBit = Extend(item.globals);
    const GlobalItems& globals = item.globals;
    const bool isPadding = item.usages.empty();
    if (isPadding || globals.reportCount == 0) return;
    if (globals.reportSize == 0 || globals.reportSize > kMaxFieldBits) {
        throw DescriptorError("a field with a usage is 1 to 32 bits wide");
    }
    if (globals.reportCount > kMaxCount) throw DescriptorError("more than 65535 fields");
    const std::vector<Capability> declared =
        item.IsArray() ? ArrayCapabilities(item, startBit) : VariableCapabilities(item, startBit);
    std::for_each(declared.rbegin(), declared.rend(),
                  [&](const Capability& capability) { List(capability, item.IsButtons()); });
}

// Returns the bit at which the new fields start.
std::uint32_t ReportLayout::Extend(const GlobalItems& globals) {
    std::uint32_t& bits = payloadBits_[globals.reportId];
    const std::uint64_t added =
        static_cast<std::uint64_t>(globals.reportSize) * globals.reportCount;
    if (added > kMaxPayloadBits - bits) throw DescriptorError("report longer than 65535 bytes");
    const std::uint32_t startBit = 8 + bits;
    bits += static_cast<std::uint32_t>(added);
    return startBit;
}

void ReportLayout::List(Capability capability, bool isButton) {
    const std::uint32_t usages = capability.usages.Count();
    if (usages > kMaxCount - dataIndices_) throw DescriptorError("more than 65535 data indices");
    capability.dataIndex = static_cast<USHORT>(dataIndices_);
    dataIndices_ += usages;
    if (isButton) {
        if (capability.fieldCount > kMaxCount - usageListLength_) {
            throw DescriptorError("more than 65535 button fields");
        }
        usageListLength_ += capability.fieldCount;
    }
    (isButton ? buttons_ : values_).push_back(capability);
}

std::size_t ReportLayout::LongestReport() const {
    std::size_t longest = 0;
    for (const auto& [id, bits] : payloadBits_) longest = std::max(longest, BytesOf(bits));
    return longest;
}

std::optional<std::size_t> ReportLayout::ReportLength(UCHAR reportId) const {
    const auto found = payloadBits_.find(reportId);
    if (found == payloadBits_.end()) return std::nullopt;
    return BytesOf(found->second);
}

std::vector<UCHAR> ReportLayout::ReportIds() const {
    std::vector<UCHAR> ids;
    for (const auto& [id, bits] : payloadBits_) ids.push_back(id);
    return ids;
}

ULONG ReportLayout::MaxUsageListLength(USAGE page) const {
    ULONG length = 0;
    for (const Capability& capability : buttons_) {
        if (page == 0 || page == capability.usages.page) length += capability.fieldCount;
    }
    return length;
}

}  // namespace simulator::hid
