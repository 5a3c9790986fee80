#include "testing/virtual-touchpad/descriptor/HapticLayout.h"

#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace virtual_touchpad {
namespace {

constexpr std::uint16_t kGenericDesktopPage = 0x01;
constexpr std::uint16_t kButtonPage = 0x09;
constexpr std::uint16_t kDigitizerPage = 0x0D;
constexpr std::uint16_t kHapticsPage = 0x0E;
constexpr std::uint16_t kVendorPage = 0xFF00;

constexpr int kFingers = 3;

void AddFinger(ReportDescriptorBuilder& builder) {
    builder.UsagePage(kDigitizerPage)
        .Usage(0x22)  // finger
        .Collection(CollectionKind::Logical)
        .Buttons(MainItem::Input, 0x47, 0x47)  // confidence
        .Buttons(MainItem::Input, 0x42, 0x42)  // tip switch
        .Padding(MainItem::Input, 2)
        .Value(MainItem::Input, 0x51, 4, 15)  // contact id
        .UsagePage(kGenericDesktopPage)
        .Value(MainItem::Input, 0x30, 16, 4095)  // X
        .Value(MainItem::Input, 0x31, 16, 2047)  // Y
        .EndCollection();
}

void AddFingerReport(ReportDescriptorBuilder& builder) {
    builder.ReportId(kFingerReportId);
    for (int finger = 0; finger < kFingers; ++finger) AddFinger(builder);
    builder.UsagePage(kDigitizerPage)
        .Value(MainItem::Input, 0x56, 16, 0xFFFF)  // scan time
        .Value(MainItem::Input, 0x54, 8, 5)        // contact count
        .UsagePage(kButtonPage)
        .Buttons(MainItem::Input, 0x01, 0x01)
        .Padding(MainItem::Input, 7);
}

void AddHapticsReport(ReportDescriptorBuilder& builder, bool hasIntensity) {
    builder.UsagePage(kHapticsPage)
        .Usage(0x01)  // simple haptic controller
        .Collection(CollectionKind::Logical)
        .ReportId(kHapticsReportId)
        .Value(MainItem::Feature, 0x20, 4, 15);  // auto trigger
    if (hasIntensity) {
        builder.Value(MainItem::Feature, 0x23, 7, kIntensityMaximum);
    } else {
        builder.Padding(MainItem::Feature, 7);
    }
    builder
        .Value(MainItem::Feature, 0x24, 5, 31)   // repeat count
        .Value(MainItem::Feature, 0x25, 8, 255)  // retrigger period
        .EndCollection();
}

}  // namespace

std::vector<std::uint8_t> BuildReportDescriptor(const HapticLayout& layout) {
    ReportDescriptorBuilder builder;
    builder.UsagePage(kDigitizerPage).Usage(0x05).Collection(CollectionKind::Application);
    AddFingerReport(builder);
    builder.UsagePage(kDigitizerPage)
        .ReportId(kCapabilitiesReportId)
        .Value(MainItem::Feature, 0x55, 4, 15)  // contact count maximum
        .Value(MainItem::Feature, 0x59, 4, 15)  // pad type
        .UsagePage(kVendorPage)
        .ReportId(kCertificationReportId)
        .LogicalMinimum(0)
        .LogicalMaximum(0xFF)
        .ReportSize(8)
        .ReportCount(128)
        .Usage(0xC5)
        .Main(MainItem::Feature, kDataVariable);
    AddHapticsReport(builder, layout.hasIntensity);
    builder.UsagePage(kDigitizerPage)
        .ReportId(kReportingReportId)
        .Buttons(MainItem::Feature, 0x57, 0x58)  // surface switch, button switch
        .Padding(MainItem::Feature, 6);
    return builder.EndCollection().Bytes();
}

std::vector<std::uint8_t> HapticsReport(const HapticFields& fields) {
    const auto bits = static_cast<std::uint32_t>(fields.autoTrigger) |
                      static_cast<std::uint32_t>(fields.intensity) << 4 |
                      static_cast<std::uint32_t>(fields.repeatCount) << 11 |
                      static_cast<std::uint32_t>(fields.retriggerPeriod) << 16;
    return {kHapticsReportId, static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
            static_cast<std::uint8_t>(bits >> 16)};
}

}  // namespace virtual_touchpad
