#include "testing/parity/Descriptors.h"

#include "testing/parity/DescriptorWords.h"

namespace parity {
namespace {

// Whole bytes of buttons without padding, then a range across a byte boundary.
Bytes ButtonsWithoutPadding() {
    return Closed(Application()
                      .Buttons(Main::Output, 0x01, 0x10)
                      .Buttons(Main::Output, 0x20, 0x22)
                      .Buttons(Main::Output, 0x30, 0x39)
                      .Buttons(Main::Output, 0x40, 0x42));
}

ReportDescriptorBuilder FourBits() {
    return Application().ReportId(1).LogicalMinimum(0).LogicalMaximum(1).ReportSize(1).ReportCount(
        4);
}

Bytes SingleButtonsInOneItem() {
    return Closed(FourBits()
                      .Usage(0x01)
                      .Usage(0x20)
                      .Usage(0x02)
                      .Usage(0x10)
                      .Main(Main::Output, kDataVariable)
                      .Padding(Main::Output, 4));
}

Bytes SinglesAndARangeInOneItem() {
    return Closed(FourBits()
                      .Usage(0x01)
                      .UsageMinimum(0x10)
                      .UsageMaximum(0x11)
                      .Usage(0x02)
                      .Main(Main::Output, kDataVariable)
                      .Padding(Main::Output, 4));
}

Bytes ButtonsOfSeveralPages() {
    return Closed(Application()
                      .Buttons(Main::Input, 0x01, 0x03)
                      .UsagePage(kButtonPage)
                      .Buttons(Main::Input, 0x01, 0x05)
                      .UsagePage(kVendorPage)
                      .Buttons(Main::Input, 0x04, 0x08)
                      .Padding(Main::Input, 3));
}

ReportDescriptorBuilder Slots(std::uint32_t logicalMinimum, std::uint32_t bits,
                              std::uint32_t slots) {
    return Application()
        .ReportId(2)
        .LogicalMinimum(logicalMinimum)
        .LogicalMaximum(logicalMinimum + 5)
        .ReportSize(bits)
        .ReportCount(slots);
}

Bytes ByteSlots() {
    return Closed(
        Slots(1, 8, 4).UsageMinimum(0x41).UsageMaximum(0x46).Main(Main::Output, kDataArray));
}

Bytes ByteSlotsOfSingleUsages() {
    ReportDescriptorBuilder builder = Slots(1, 8, 2);
    for (std::uint16_t usage = 0x41; usage <= 0x46; ++usage) builder.Usage(usage);
    return Closed(builder.Main(Main::Output, kDataArray));
}

Bytes SlotsBesideBits() {
    return Closed(Slots(1, 8, 3)
                      .UsageMinimum(0x41)
                      .UsageMaximum(0x46)
                      .Main(Main::Output, kDataArray)
                      .Buttons(Main::Output, 0x01, 0x08)
                      .Value(Main::Output, 0x20, 8, 0xFF));
}

Bytes NibbleSlots() {
    return Closed(
        Slots(1, 4, 4).UsageMinimum(0x41).UsageMaximum(0x46).Main(Main::Output, kDataArray));
}

Bytes SlotsFromAHighMinimum() {
    return Closed(
        Slots(5, 8, 3).UsageMinimum(0x41).UsageMaximum(0x46).Main(Main::Output, kDataArray));
}

// Index 0 is left for a slot that is free.
Bytes SlotsWithOneIndexMoreThanUsages() {
    ReportDescriptorBuilder builder = Application();
    builder.LogicalMinimum(0).LogicalMaximum(8).ReportSize(8).ReportCount(3);
    return Closed(builder.UsageMinimum(0x08).UsageMaximum(0x0F).Main(Main::Output, kDataArray));
}

}  // namespace

std::vector<Descriptor> ButtonDescriptors() {
    return {
        {"ButtonsWithoutPadding", ButtonsWithoutPadding()},
        {"SingleButtonsInOneItem", SingleButtonsInOneItem()},
        {"SinglesAndARangeInOneItem", SinglesAndARangeInOneItem()},
        {"ButtonsOfSeveralPages", ButtonsOfSeveralPages()},
        {"ByteSlots", ByteSlots()},
        {"ByteSlotsOfSingleUsages", ByteSlotsOfSingleUsages()},
        {"SlotsBesideBits", SlotsBesideBits()},
        {"NibbleSlots", NibbleSlots()},
        {"SlotsFromAHighMinimum", SlotsFromAHighMinimum()},
        {"SlotsWithOneIndexMoreThanUsages", SlotsWithOneIndexMoreThanUsages()},
    };
}

}  // namespace parity
