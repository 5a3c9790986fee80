#include "testing/parity/Descriptors.h"

#include "testing/parity/DescriptorWords.h"

namespace parity {
namespace {

Bytes Keyboard() {
    return Closed(Application(kGenericDesktopPage, 0x06)
                      .UsagePage(kKeyboardPage)
                      .Buttons(Main::Input, 0xE0, 0xE7)
                      .Padding(Main::Input, 8)
                      .LogicalMinimum(0)
                      .LogicalMaximum(101)
                      .ReportSize(8)
                      .ReportCount(6)
                      .UsageMinimum(0)
                      .UsageMaximum(101)
                      .Main(Main::Input, kDataArray)
                      .UsagePage(kLedPage)
                      .Buttons(Main::Output, 1, 5)
                      .Padding(Main::Output, 3));
}

Bytes Mouse() {
    ReportDescriptorBuilder builder = Application(kGenericDesktopPage, 0x02);
    builder.Usage(0x01)
        .Collection(CollectionKind::Physical)
        .UsagePage(kButtonPage)
        .Buttons(Main::Input, 1, 5)
        .Padding(Main::Input, 3)
        .UsagePage(kGenericDesktopPage)
        .Raw(Logical(-2047, 2047))
        .ReportSize(12)
        .ReportCount(2)
        .Usage(0x30)
        .Usage(0x31)
        .Main(Main::Input, kDataVariable | kRelative)
        .Raw(Logical(-127, 127))
        .ReportSize(8)
        .ReportCount(1)
        .Usage(0x38)
        .Main(Main::Input, kDataVariable | kRelative)
        .EndCollection();
    return Closed(builder);
}

void AddFinger(ReportDescriptorBuilder& builder) {
    builder.UsagePage(kDigitizerPage)
        .Usage(0x22)
        .Collection(CollectionKind::Logical)
        .LogicalMinimum(0)
        .LogicalMaximum(1)
        .ReportSize(1)
        .ReportCount(2)
        .Usage(0x47)  // confidence
        .Usage(0x42)  // tip switch
        .Main(Main::Input, kDataVariable)
        .Value(Main::Input, 0x51, 3, 5)  // contact id
        .Padding(Main::Input, 3)
        .UsagePage(kGenericDesktopPage)
        .Raw(Push())
        .Raw(Physical(0, 1200))
        .Raw(UnitWithExponent(0x11, 0x0E))
        .Value(Main::Input, 0x30, 16, 4095)
        .Raw(Physical(0, 700))
        .Value(Main::Input, 0x31, 16, 2047)
        .Raw(Pop())
        .EndCollection();
}

Bytes PrecisionTouchpad() {
    ReportDescriptorBuilder builder = Application(kDigitizerPage, 0x05);
    builder.ReportId(4);
    for (int finger = 0; finger < 5; ++finger) AddFinger(builder);
    builder.UsagePage(kDigitizerPage)
        .Raw(UnitWithExponent(0x01, 0x0C))
        .Value(Main::Input, 0x56, 16, 0xFFFF)  // scan time
        .Raw(UnitWithExponent(0x00, 0x00))
        .Value(Main::Input, 0x54, 7, 5)  // contact count
        .UsagePage(kButtonPage)
        .Buttons(Main::Input, 1, 1)
        .UsagePage(kDigitizerPage)
        .ReportId(5)
        .Value(Main::Feature, 0x55, 4, 5)
        .Value(Main::Feature, 0x59, 4, 2)
        .ReportId(6)
        .Usage(0x22)
        .Collection(CollectionKind::Physical)
        .Buttons(Main::Feature, 0x57, 0x58)
        .Padding(Main::Feature, 6)
        .EndCollection();
    return Closed(builder);
}

// Whole reports as one value array each, without report ids.
Bytes VendorReports() {
    ReportDescriptorBuilder builder = Application(0xFF00, 0x01);
    builder.LogicalMinimum(0).LogicalMaximum(0xFF).ReportSize(8);
    builder.ReportCount(64).Usage(0x20).Main(Main::Input, kDataVariable);
    builder.ReportCount(63).Usage(0x21).Main(Main::Output, kDataVariable);
    builder.ReportCount(300).Usage(0x22).Main(Main::Feature, kDataVariable);
    return Closed(builder);
}

// One array slot for any of many usages, and buttons of single usages.
Bytes ConsumerControl() {
    return Closed(Application(kConsumerPage, 0x01)
                      .ReportId(3)
                      .LogicalMinimum(1)
                      .LogicalMaximum(0x3FF)
                      .ReportSize(16)
                      .ReportCount(1)
                      .UsageMinimum(1)
                      .UsageMaximum(0x3FF)
                      .Main(Main::Input, kDataArray)
                      .ReportId(4)
                      .LogicalMinimum(0)
                      .LogicalMaximum(1)
                      .ReportSize(1)
                      .ReportCount(4)
                      .Usage(0xB5)
                      .Usage(0xB6)
                      .Usage(0xE2)
                      .Usage(0xCD)
                      .Main(Main::Input, kDataVariable)
                      .Padding(Main::Input, 4));
}

Bytes Gamepad() {
    ReportDescriptorBuilder builder = Application(kGenericDesktopPage, 0x05);
    builder.Usage(0x01).Collection(CollectionKind::Physical).Raw(Logical(-32768, 32767));
    builder.ReportSize(16).ReportCount(2).Usage(0x30).Usage(0x31);
    builder.Main(Main::Input, kDataVariable).EndCollection();
    builder.Usage(0x01).Collection(CollectionKind::Physical).ReportSize(16).ReportCount(2);
    builder.Usage(0x33).Usage(0x34).Main(Main::Input, kDataVariable).EndCollection();
    builder.Value(Main::Input, 0x32, 10, 1023).Padding(Main::Input, 6);
    builder.UsagePage(kButtonPage).Buttons(Main::Input, 1, 10).UsagePage(kGenericDesktopPage);
    builder.Raw(Push()).Raw(Physical(0, 315)).Raw(UnitWithExponent(0x14, 0x00));
    builder.LogicalMinimum(1).LogicalMaximum(8).ReportSize(4).ReportCount(1).Usage(0x39);
    builder.Main(Main::Input, kDataVariable | kNullState).Raw(Pop()).Padding(Main::Input, 2);
    builder.UsagePage(0x0F).LogicalMinimum(0).LogicalMaximum(100).ReportSize(8).ReportCount(4);
    builder.Usage(0x70).Main(Main::Output, kDataVariable);
    return Closed(builder);
}

}  // namespace

std::vector<Descriptor> DeviceDescriptors() {
    return {
        {"Keyboard", Keyboard()},
        {"Mouse", Mouse()},
        {"PrecisionTouchpad", PrecisionTouchpad()},
        {"VendorReports", VendorReports()},
        {"ConsumerControl", ConsumerControl()},
        {"Gamepad", Gamepad()},
    };
}

}  // namespace parity
