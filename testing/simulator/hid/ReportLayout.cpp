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

// Returns the slot value of an array's first usage. With one index more than usages, index 0 means
// that the slot is free; but in a keyboard's array, whose usages begin with 0, the index is the
// usage.
std::int64_t FirstSlotValue(const MainItem& item) {
    std::int64_t usages = 0;
    for (const DeclaredUsages& declared : item.usages) usages += declared.Count();
    const GlobalItems& globals = item.globals;
    const bool isZeroFree = globals.logicalMinimum == 0 && globals.logicalMaximum == usages &&
                            item.usages.front().minimum != 0;
    return isZeroFree ? 1 : globals.logicalMinimum;
}

// Every usage of an array shares all of its slots.
std::vector<Capability> ArrayCapabilities(const MainItem& item, std::uint32_t startBit) {
    std::vector<Capability> capabilities;
    std::int64_t slotValue = FirstSlotValue(item);
    for (const DeclaredUsages& usages : item.usages) {
        Capability capability = CapabilityOf(item, usages, startBit);
        capability.fieldCount = item.globals.reportCount;
        capability.firstSlotValue = slotValue;
        slotValue += usages.Count();
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

// Constant arrays and constant fields of usage 0 only take room, as those without a usage do.
bool IsPadding(const MainItem& item, const DeclaredUsages& usages) {
    return item.IsConstant() && (item.IsArray() || usages.maximum == 0);
}

// Returns the capabilities in declaration order.
std::vector<Capability> CapabilitiesOf(const MainItem& item, std::uint32_t startBit) {
    std::vector<Capability> declared =
        item.IsArray() ? ArrayCapabilities(item, startBit) : VariableCapabilities(item, startBit);
    declared.erase(std::remove_if(declared.begin(), declared.end(),
                                  [&](const Capability& capability) {
                                      return IsPadding(item, capability.usages);
                                  }),
                   declared.end());
    return declared;
}

}  // namespace

void ReportLayout::Add(const MainItem& item) {
    if (item.usages.empty() && !item.IsConstant()) {
        throw DescriptorError("MAIN_ITEM_NO_USAGE: data without a usage");
    }
    const std::uint32_t startBit = Extend(item.globals);
    if (item.usages.empty() || item.globals.reportCount == 0) return;
    if (item.globals.reportSize > kMaxCount) throw DescriptorError("a field of over 65535 bits");
    if (item.globals.reportCount > kMaxCount) throw DescriptorError("more than 65535 fields");
    std::vector<Capability> listed = CapabilitiesOf(item, startBit);
    // The list begins with the usage declared last. Data indices follow the list for variable
    // fields, and the declaration for an array.
    if (item.IsArray()) NumberData(listed);
    std::reverse(listed.begin(), listed.end());
    if (!item.IsArray()) NumberData(listed);
    for (const Capability& capability : listed) List(capability, item.IsButtons());
}

void ReportLayout::NumberData(std::vector<Capability>& capabilities) {
    for (Capability& capability : capabilities) {
        const std::uint32_t usages = capability.usages.Count();
        if (usages > kMaxCount - dataIndices_) {
            throw DescriptorError("more than 65535 data indices");
        }
        capability.dataIndex = static_cast<USHORT>(dataIndices_);
        dataIndices_ += usages;
    }
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

void ReportLayout::List(const Capability& capability, bool isButton) {
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

bool ReportLayout::EndsOnBytes() const {
    return std::all_of(payloadBits_.begin(), payloadBits_.end(),
                       [](const auto& report) { return report.second % 8 == 0; });
}

ULONG ReportLayout::MaxUsageListLength(USAGE page) const {
    ULONG length = 0;
    for (const Capability& capability : buttons_) {
        if (page == 0 || page == capability.usages.page) length += capability.fieldCount;
    }
    return length;
}

}  // namespace simulator::hid
