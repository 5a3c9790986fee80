#include "testing/fuzz/InputLayouts.h"

#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace fuzz {
namespace {

using namespace virtual_touchpad;

using simulator::Bytes;

constexpr std::uint8_t kOtherReportId = 5;
constexpr std::uint8_t kStateReportId = 7;
constexpr std::uint16_t kVendorPage = 0xFF80;
constexpr std::uint16_t kButtonPage = 0x09;
constexpr std::uint16_t kFirstSlotUsage = 0x3E;
constexpr std::uint16_t kSlotUsages = 13;

ReportDescriptorBuilder Begin() {
    ReportDescriptorBuilder builder;
    builder.UsagePage(kVendorPage).Usage(0x80).Collection(CollectionKind::Application);
    return builder;
}

// Adds array slots for the usages, which are numbered from 1.
void AddSlots(ReportDescriptorBuilder& builder, std::uint32_t bits, std::uint32_t count) {
    builder.LogicalMinimum(1)
        .LogicalMaximum(kSlotUsages)
        .ReportSize(bits)
        .ReportCount(count)
        .UsageMinimum(kFirstSlotUsage)
        .UsageMaximum(kFirstSlotUsage + kSlotUsages - 1)
        .Main(MainItem::Input, kDataArray);
}
constexpr std::uint8_t kCameraSlot = 0x41 - kFirstSlotUsage + 1;

UsageField SlotsField(std::uint8_t reportId, std::size_t firstBit, std::size_t bits,
                      std::size_t count) {
    return {reportId, firstBit, bits, count, kFirstSlotUsage, kSlotUsages};
}

UsageField BitsField(std::uint8_t reportId) { return {reportId, 8, 1, 8, 0x40, 0}; }

// Completes a touchpad with the usual output and feature reports.
InputLayout Finish(const ReportDescriptorBuilder& inputs, InputFields fields, Bytes cameraPress) {
    TouchpadLayout usual;
    usual.inputReportIds = {};
    InputLayout layout{Describe(usual), std::move(fields), std::move(cameraPress)};
    const Bytes others = layout.description.reportDescriptor;
    const auto head = static_cast<std::ptrdiff_t>(Begin().Bytes().size());
    layout.description.reportDescriptor = inputs.Bytes();
    layout.description.reportDescriptor.insert(layout.description.reportDescriptor.end(),
                                               others.begin() + head, others.end());
    return layout;
}

InputLayout BitField(const std::vector<std::uint8_t>& reportIds) {
    TouchpadLayout layout;
    layout.inputReportIds = reportIds;
    InputFields fields;
    for (const std::uint8_t reportId : reportIds) {
        fields.usages.push_back(BitsField(reportId));
        fields.states.push_back({reportId, 16, 8});
    }
    return {Describe(layout), fields, {reportIds.front(), 0x02, 0}};
}

InputLayout Array(std::uint8_t reportId) {
    ReportDescriptorBuilder builder = Begin();
    builder.ReportId(reportId);
    AddSlots(builder, 8, 3);
    builder.Value(MainItem::Input, 0x48, 8, 0xFF);
    return Finish(builder, {{SlotsField(reportId, 8, 8, 3)}, {{reportId, 32, 8}}},
                  {reportId, kCameraSlot});
}

// Returns a touchpad with a bit field, an array of unaligned nibbles, a 32-bit state, and buttons
// of another usage page, in reports of different lengths.
InputLayout ManyReports() {
    ReportDescriptorBuilder builder = Begin();
    builder.ReportId(kButtonReportId)
        .Buttons(MainItem::Input, 0x40, 0x47)
        .ReportId(kOtherReportId)
        .Padding(MainItem::Input, 3);
    AddSlots(builder, 4, 9);
    builder.UsagePage(kButtonPage)
        .Buttons(MainItem::Input, 0x01, 0x03)
        .Padding(MainItem::Input, 6)
        .UsagePage(kVendorPage)
        .ReportId(kStateReportId)
        .Padding(MainItem::Input, 5)
        .Value(MainItem::Input, 0x48, 32, 0x7FFFFFFF)
        .Padding(MainItem::Input, 3);
    return Finish(builder,
                  {{BitsField(kButtonReportId), SlotsField(kOtherReportId, 11, 4, 9)},
                   {{kStateReportId, 13, 32}}},
                  {kButtonReportId, 0x02});
}

InputLayout WithoutIds() {
    ReportDescriptorBuilder builder = Begin();
    builder.Buttons(MainItem::Input, 0x40, 0x47).Value(MainItem::Input, 0x48, 8, 0xFF);
    for (const std::uint16_t usage : kLightUsages) builder.Value(MainItem::Output, usage, 8, 0xFF);
    builder.Buttons(MainItem::Output, 0x01, 0x04).Padding(MainItem::Output, 4).EndCollection();
    InputLayout layout{Describe(TouchpadLayout{}), {{BitsField(0)}, {{0, 16, 8}}}, {0, 0x02, 0}};
    layout.description.reportDescriptor = builder.Bytes();
    return layout;
}

}  // namespace

const std::vector<InputLayout>& InputLayouts() {
    static const std::vector<InputLayout> layouts{
        BitField({kButtonReportId}),
        BitField({kSecondLayoutReportId}),
        BitField({kButtonReportId, kSecondLayoutReportId}),
        Array(kButtonReportId),
        Array(kSecondLayoutReportId),
        ManyReports(),
        WithoutIds()};
    return layouts;
}

}  // namespace fuzz
