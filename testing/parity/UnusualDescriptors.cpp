#include "testing/parity/Descriptors.h"

#include "testing/parity/DescriptorWords.h"

namespace parity {
namespace {

Bytes PageAfterTheUsage() {
    ReportDescriptorBuilder builder = Application();
    builder.LogicalMinimum(0).LogicalMaximum(0xFF).ReportSize(8).ReportCount(2).Usage(0x20);
    builder.UsagePage(kOtherVendorPage).Usage(0x21).Main(Main::Output, kDataVariable);
    return Closed(builder);
}

// A field of no bits, and one of more bits than a value has.
Bytes FieldsOfUnusualWidths() {
    return Closed(Application()
                      .Value(Main::Output, 0x20, 8, 0xFF)
                      .Value(Main::Output, 0x21, 0, 1)
                      .Value(Main::Output, 0x22, 40, 1)
                      .Value(Main::Output, 0x23, 8, 0xFF));
}

Bytes ValueWithoutLimits() {
    ReportDescriptorBuilder builder = Application();
    builder.ReportSize(8).ReportCount(1).Usage(0x20).Main(Main::Output, kDataVariable);
    return Closed(builder);
}

// Exponents of one byte and of two, and a nibble.
Bytes UnitExponents() {
    ReportDescriptorBuilder builder = Application();
    builder.Raw({0x65, 0x11, 0x55, 0xFD}).Value(Main::Input, 0x20, 8, 0xFF);
    builder.Raw({0x56, 0xFE, 0xFF}).Value(Main::Input, 0x21, 8, 0xFF);
    return Closed(builder.Raw({0x55, 0x0D}).Value(Main::Input, 0x22, 8, 0xFF));
}

// A bit and a byte with a usage; a byte of usage 0 only takes room.
Bytes ConstantFields() {
    ReportDescriptorBuilder builder = Application();
    builder.LogicalMinimum(0).LogicalMaximum(1).ReportSize(1).ReportCount(1);
    builder.Usage(0x01).Main(Main::Input, kConstant | kDataVariable).Padding(Main::Input, 7);
    builder.ReportSize(8).ReportCount(1).Usage(0).Main(Main::Input, kConstant | kDataVariable);
    builder.Usage(0x20).Main(Main::Input, kConstant | kDataVariable);
    return Closed(builder.Buttons(Main::Input, 0x31, 0x38));
}

Bytes ConstantArray() {
    ReportDescriptorBuilder builder = Application();
    builder.LogicalMinimum(0).LogicalMaximum(1).ReportSize(1).ReportCount(8);
    builder.UsageMinimum(0x01).UsageMaximum(0x08).Main(Main::Input, kConstant);
    return Closed(builder.Buttons(Main::Input, 0x31, 0x38));
}

}  // namespace

std::vector<Descriptor> UnusualDescriptors() {
    return {
        {"PageAfterTheUsage", PageAfterTheUsage()},
        {"FieldsOfUnusualWidths", FieldsOfUnusualWidths()},
        {"ValueWithoutLimits", ValueWithoutLimits()},
        {"UnitExponents", UnitExponents()},
        {"ConstantFields", ConstantFields()},
        {"ConstantArray", ConstantArray()},
    };
}

}  // namespace parity
