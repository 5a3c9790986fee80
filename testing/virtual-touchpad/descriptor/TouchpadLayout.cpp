#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace virtual_touchpad {
namespace {

void AddButtonReport(ReportDescriptorBuilder& builder, std::uint8_t reportId) {
    builder.ReportId(reportId)
        .Buttons(MainItem::Input, 0x40, 0x47)
        .Value(MainItem::Input, 0x48, 8, 0xFF);
}

void AddLightReport(ReportDescriptorBuilder& builder, const TouchpadLayout& layout) {
    builder.ReportId(kLightReportId);
    for (const std::uint16_t usage : kLightUsages) {
        if (layout.missingLightUsages.count(usage) != 0) {
            builder.Padding(MainItem::Output, 8);
        } else {
            builder.Value(MainItem::Output, usage, 8, 0xFF);
        }
    }
    if (layout.activeUsagesAsArray) {
        builder.LogicalMinimum(1)
            .LogicalMaximum(4)
            .ReportSize(8)
            .ReportCount(4)
            .UsageMinimum(0x01)
            .UsageMaximum(0x04)
            .Main(MainItem::Output, kDataArray);
    } else {
        builder.Buttons(MainItem::Output, 0x01, 0x04).Padding(MainItem::Output, 28);
    }
}

void AddRequestReport(ReportDescriptorBuilder& builder, std::uint8_t reportId) {
    builder.ReportId(reportId)
        .Padding(MainItem::Output, 8 * (kRequestByteOffset - 1))
        .Buttons(MainItem::Output, 0x30, 0x30)
        .Padding(MainItem::Output, 7);
}

void AddClickModeReport(ReportDescriptorBuilder& builder) {
    builder.ReportId(kClickModeReportId)
        .Value(MainItem::Feature, 0x61, 8, 0xFF)
        .Value(MainItem::Feature, 0x62, 16, 2000)
        .Value(MainItem::Feature, 0x63, 8, 0xFF);
}

}  // namespace

std::vector<std::uint8_t> BuildReportDescriptor(const TouchpadLayout& layout) {
    ReportDescriptorBuilder builder;
    builder.UsagePage(layout.usagePage).Usage(layout.usage).Collection(CollectionKind::Application);
    for (const std::uint8_t reportId : layout.inputReportIds) AddButtonReport(builder, reportId);
    AddLightReport(builder, layout);
    if (layout.hasRequest) AddRequestReport(builder, layout.requestReportId);
    if (layout.hasFeatureReport) AddClickModeReport(builder);
    return builder.EndCollection().Bytes();
}

}  // namespace virtual_touchpad
