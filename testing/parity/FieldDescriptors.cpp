#include "testing/parity/Descriptors.h"

#include "testing/parity/DescriptorWords.h"

namespace parity {
namespace {

Bytes UnalignedFields() {
    return Closed(Application()
                      .Value(Main::Output, 0x20, 3, 7)
                      .Value(Main::Output, 0x21, 11, 2047)
                      .Value(Main::Output, 0x22, 32, 0x7FFFFFFF)
                      .Value(Main::Output, 0x23, 24, 0xFFFFFF)
                      .Padding(Main::Output, 5)
                      .Value(Main::Output, 0x24, 31, 0x7FFFFFFF)
                      .Value(Main::Output, 0x25, 6, 63));
}

Bytes SignedFields() {
    ReportDescriptorBuilder builder = Application();
    builder.ReportId(1).ReportCount(1);
    builder.Raw(Physical(-500, 500)).Raw(UnitWithExponent(0x11, 0x0F));
    builder.ReportSize(8).Raw(Logical(-128, 127)).Usage(0x20).Main(Main::Input, kDataVariable);
    builder.ReportSize(13).Raw(Logical(-10, -1)).Usage(0x21).Main(Main::Input, kDataVariable);
    builder.ReportSize(3).Raw(Logical(-4, 3)).Usage(0x22).Main(Main::Input, kDataVariable);
    builder.ReportSize(16).Raw(Logical(-32768, 32767)).Usage(0x23);
    return Closed(builder.Main(Main::Feature, kDataVariable));
}

// Every bit of the main item that the platform reports.
Bytes MainItemFlags() {
    ReportDescriptorBuilder builder = Application();
    builder.LogicalMinimum(0).LogicalMaximum(200).ReportSize(8).ReportCount(1);
    std::uint16_t usage = 0x20;
    for (const int flag : {0x00, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80}) {
        builder.Usage(usage++).Main(Main::Feature, static_cast<std::uint8_t>(kDataVariable | flag));
    }
    builder.Usage(usage++).Raw({0xB2, 0x02, 0x01});  // buffered bytes
    builder.Usage(usage).Main(Main::Feature, kConstant | kDataVariable);
    return Closed(builder);
}

Bytes ValueRanges() {
    ReportDescriptorBuilder builder = Application();
    builder.ReportId(1).LogicalMinimum(0).LogicalMaximum(0xFF).ReportSize(8);
    builder.ReportCount(3).UsageMinimum(0x40).UsageMaximum(0x42).Main(Main::Output, kDataVariable);
    builder.ReportCount(1).UsageMinimum(0x50).UsageMaximum(0x50).Main(Main::Output, kDataVariable);
    builder.ReportSize(5).ReportCount(4).UsageMaximum(0x63).UsageMinimum(0x60);
    builder.Main(Main::Output, kDataVariable).Padding(Main::Output, 4);
    return Closed(builder);
}

Bytes SingleValuesInOneItem() {
    ReportDescriptorBuilder builder = Application();
    builder.LogicalMinimum(0).LogicalMaximum(0xFF).ReportSize(8).ReportCount(3);
    builder.Usage(0x20).Usage(0x21).Usage(0x22).Main(Main::Output, kDataVariable);
    return Closed(builder.Value(Main::Output, 0x30, 8, 0xFF));
}

// The last usage takes all remaining fields.
Bytes FewerUsagesThanFields() {
    ReportDescriptorBuilder builder = Application();
    builder.LogicalMinimum(0).LogicalMaximum(0xFF).ReportSize(8).ReportCount(4);
    builder.Usage(0x20).Usage(0x21).Main(Main::Output, kDataVariable);
    builder.Value(Main::Output, 0x30, 8, 0xFF).LogicalMaximum(1).ReportSize(1).ReportCount(4);
    builder.Usage(0x40).Usage(0x41).Main(Main::Output, kDataVariable).Padding(Main::Output, 4);
    return Closed(builder);
}

Bytes MoreUsagesThanFields() {
    ReportDescriptorBuilder builder = Application();
    builder.LogicalMinimum(0).LogicalMaximum(0xFF).ReportSize(8).ReportCount(2);
    builder.Usage(0x20).Usage(0x21).Usage(0x22).Main(Main::Output, kDataVariable);
    builder.UsageMinimum(0x30).UsageMaximum(0x37).Main(Main::Output, kDataVariable);
    return Closed(builder);
}

Bytes ValueArrays() {
    ReportDescriptorBuilder builder = Application();
    builder.ReportId(7).LogicalMinimum(0).LogicalMaximum(15).ReportSize(4).ReportCount(6);
    builder.Usage(0x20).Main(Main::Input, kDataVariable).ReportSize(16).ReportCount(2);
    builder.Usage(0x21).Main(Main::Input, kDataVariable).Value(Main::Input, 0x22, 8, 0xFF);
    return Closed(builder);
}

Bytes UsagesOfSeveralPages() {
    ReportDescriptorBuilder builder = Application();
    builder.LogicalMinimum(0).LogicalMaximum(0xFF).ReportSize(8).ReportCount(3);
    builder.Usage(0x20).Raw(UsageOnPage(kOtherVendorPage, 0x20));
    builder.Raw(UsageOnPage(kGenericDesktopPage, 0x30)).Main(Main::Input, kDataVariable);
    builder.LogicalMaximum(1).ReportSize(1).ReportCount(2).Usage(0x01);
    builder.Raw(UsageOnPage(kOtherVendorPage, 0x01)).Main(Main::Input, kDataVariable);
    return Closed(builder.Padding(Main::Input, 6));
}

Bytes SameUsageInSeveralReports() {
    ReportDescriptorBuilder builder = Application();
    for (const int id : {1, 2, 0xFF}) {
        builder.ReportId(static_cast<std::uint8_t>(id)).Padding(Main::Output, id == 1 ? 8 : 16);
        builder.Value(Main::Output, 0x20, 8, 0xFF).Buttons(Main::Output, 0x01, 0x08);
    }
    return Closed(builder);
}

// A report whose items are not next to each other.
Bytes InterleavedReports() {
    return Closed(Application()
                      .ReportId(1)
                      .Value(Main::Input, 0x20, 4, 15)
                      .ReportId(2)
                      .Value(Main::Input, 0x21, 8, 0xFF)
                      .Value(Main::Feature, 0x30, 8, 0xFF)
                      .ReportId(1)
                      .Value(Main::Input, 0x22, 12, 4095)
                      .ReportId(2)
                      .Buttons(Main::Input, 0x01, 0x08)
                      .Value(Main::Output, 0x23, 8, 0xFF));
}

Bytes NestedCollections() {
    ReportDescriptorBuilder builder = Application();
    builder.Value(Main::Input, 0x20, 8, 0xFF);
    builder.Usage(0x90).Collection(CollectionKind::Physical).Value(Main::Input, 0x20, 8, 0xFF);
    builder.UsagePage(kOtherVendorPage).Usage(0x91).Collection(CollectionKind::Logical);
    builder.UsagePage(kVendorPage).Value(Main::Input, 0x20, 8, 0xFF);
    builder.Buttons(Main::Input, 0x01, 0x04).EndCollection().Buttons(Main::Input, 0x01, 0x04);
    builder.EndCollection().Collection(CollectionKind::Logical);  // one without a usage
    return Closed(builder.Value(Main::Input, 0x20, 8, 0xFF).EndCollection());
}

Bytes PushedState() {
    ReportDescriptorBuilder builder = Application();
    builder.ReportId(1).Value(Main::Output, 0x20, 8, 100).Raw(Push()).ReportId(2);
    builder.UsagePage(kOtherVendorPage).Value(Main::Output, 0x21, 16, 1000).Raw(Push());
    builder.Value(Main::Output, 0x22, 4, 15).Raw(Pop());
    builder.Usage(0x23).Main(Main::Output, kDataVariable).Padding(Main::Output, 4).Raw(Pop());
    return Closed(builder.Usage(0x24).Main(Main::Output, kDataVariable));
}

// Two of the report types have no report, and a field ends within a byte.
Bytes OutputOnly() {
    return Closed(Application()
                      .Value(Main::Output, 0x20, 7, 100)
                      .Value(Main::Output, 0x21, 2, 3)
                      .Padding(Main::Output, 7));
}

Bytes Strings() {
    ReportDescriptorBuilder builder = Application();
    builder.Raw({0x79, 0x05, 0x39, 0x03}).Value(Main::Input, 0x20, 8, 0xFF);
    builder.Raw({0x89, 0x10, 0x99, 0x13, 0x49, 0x21, 0x59, 0x24});
    return Closed(builder.Buttons(Main::Input, 0x01, 0x04).Padding(Main::Input, 4));
}

}  // namespace

std::vector<Descriptor> FieldDescriptors() {
    return {
        {"UnalignedFields", UnalignedFields()},
        {"SignedFields", SignedFields()},
        {"MainItemFlags", MainItemFlags()},
        {"ValueRanges", ValueRanges()},
        {"SingleValuesInOneItem", SingleValuesInOneItem()},
        {"FewerUsagesThanFields", FewerUsagesThanFields()},
        {"MoreUsagesThanFields", MoreUsagesThanFields()},
        {"ValueArrays", ValueArrays()},
        {"UsagesOfSeveralPages", UsagesOfSeveralPages()},
        {"SameUsageInSeveralReports", SameUsageInSeveralReports()},
        {"InterleavedReports", InterleavedReports()},
        {"NestedCollections", NestedCollections()},
        {"PushedState", PushedState()},
        {"OutputOnly", OutputOnly()},
        {"Strings", Strings()},
    };
}

}  // namespace parity
