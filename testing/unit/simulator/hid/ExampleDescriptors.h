// Descriptors of whole devices, for tests that need realistic ones.
#pragma once

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {

constexpr USAGE kGenericPage = 0x01;
constexpr USAGE kButtonPage = 0x09;
constexpr USAGE kDigitizerPage = 0x0D;
constexpr USAGE kHapticsPage = 0x0E;

inline void AddFinger(ReportDescriptorBuilder& builder) {
    builder.UsagePage(kDigitizerPage)
        .Usage(0x22)
        .Collection(CollectionKind::Logical)
        .LogicalMaximum(1)
        .Usage(0x47)  // confidence
        .Usage(0x42)  // tip switch
        .ReportCount(2)
        .ReportSize(1)
        .Main(Main::Input, kDataVariable)
        .Value(Main::Input, 0x51, 4, 15)  // contact identifier
        .Padding(Main::Input, 2)
        .UsagePage(kGenericPage)
        .LogicalMaximum(4095)
        .Raw({0x35, 0x00, 0x46, 0xB0, 0x04, 0x55, 0x0E, 0x65, 0x11})  // 0 to 12 cm
        .ReportSize(16)
        .ReportCount(2)
        .Usage(0x30)
        .Usage(0x31)
        .Main(Main::Input, kDataVariable)
        .Raw({0x45, 0x00, 0x55, 0x00, 0x65, 0x00})
        .EndCollection();
}

// A precision touchpad with two fingers, a haptic controller, and a configuration collection.
inline Bytes PrecisionTouchpad() {
    ReportDescriptorBuilder builder = Application(kDigitizerPage, 0x05);
    builder.ReportId(1);
    AddFinger(builder);
    AddFinger(builder);
    builder.UsagePage(kDigitizerPage)
        .Value(Main::Input, 0x56, 16, 0xFFFF)  // scan time
        .Value(Main::Input, 0x54, 7, 5)        // contact count
        .UsagePage(kButtonPage)
        .LogicalMaximum(1)
        .ReportSize(1)
        .ReportCount(1)
        .Usage(0x01)
        .Main(Main::Input, kDataVariable)
        .UsagePage(kDigitizerPage)
        .ReportId(2)
        .Value(Main::Feature, 0x55, 4, 5)  // contact count maximum
        .Value(Main::Feature, 0x59, 4, 2)  // pad type
        .UsagePage(0xFF00)
        .ReportId(3)
        .LogicalMaximum(0xFF)
        .ReportSize(8)
        .ReportCount(256)
        .Usage(0xC5)
        .Main(Main::Feature, kDataVariable)
        .UsagePage(kHapticsPage)
        .Usage(0x01)
        .Collection(CollectionKind::Logical)
        .ReportId(4)
        .Value(Main::Feature, 0x23, 8, 100)  // intensity
        .ReportId(5)
        .Value(Main::Output, 0x21, 16, 0xFFFF)  // manual trigger
        .Value(Main::Output, 0x23, 8, 100)
        .EndCollection()
        .EndCollection();

    builder.UsagePage(kDigitizerPage)
        .Usage(0x0E)
        .Collection(CollectionKind::Application)
        .ReportId(6)
        .Usage(0x22)
        .Collection(CollectionKind::Logical)
        .Value(Main::Feature, 0x52, 8, 10)  // input mode
        .EndCollection()
        .Usage(0x22)
        .Collection(CollectionKind::Physical)
        .ReportId(7)
        .Buttons(Main::Feature, 0x57, 0x58)  // surface and button switch
        .Padding(Main::Feature, 6)
        .EndCollection()
        .EndCollection();
    return builder.Bytes();
}

// A keyboard's report: eight modifier bits and six slots, whose index 0 is "no key".
inline Bytes Keyboard() {
    return Application(kGenericPage, 0x06)
        .UsagePage(0x07)
        .Buttons(Main::Input, 0xE0, 0xE7)
        .Padding(Main::Input, 8)
        .LogicalMinimum(0)
        .LogicalMaximum(101)
        .ReportSize(8)
        .ReportCount(6)
        .UsageMinimum(0)
        .UsageMaximum(101)
        .Main(Main::Input, kDataArray)
        .UsagePage(0x08)
        .Buttons(Main::Output, 1, 5)
        .Padding(Main::Output, 3)
        .EndCollection()
        .Bytes();
}

}  // namespace simulator::hid
