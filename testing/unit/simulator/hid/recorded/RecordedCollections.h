// Facts about top-level collections of real devices, as Windows parsed them. Each is in a file of
// its own, named by what it shows.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {

struct RecordedUsages {
    RecordedUsages(USAGE single) : first(single), last(single), isRange(false) {}
    RecordedUsages(USAGE minimum, USAGE maximum) : first(minimum), last(maximum), isRange(true) {}

    USAGE first, last;
    bool isRange;
};

struct RecordedPlace {
    unsigned byte, bit;  // of the first field, counted from the report id
    unsigned bits;       // of one field
    unsigned count;
};

struct RecordedLimits {
    LONG logicalMinimum, logicalMaximum, physicalMinimum, physicalMaximum;
};

struct RecordedCapability {
    HIDP_REPORT_TYPE type;
    UCHAR reportId;
    USAGE page;
    RecordedUsages usages;
    USHORT dataIndex;  // of the first usage
    USHORT linkCollection;
    USHORT flags;  // of the main item
    RecordedPlace place;
    // These are listed of values only.
    RecordedLimits limits{};
    ULONG unit = 0;
    LONG unitExponent = 0;
};

struct RecordedNode {
    USAGE page, usage;
    USHORT parent, children, nextSibling, firstChild;
    unsigned type;
};

struct RecordedCollection {
    std::string name;
    Bytes descriptor;  // the device's whole one, with all its top-level collections
    USAGE page = 0;
    USAGE usage = 0;
    std::array<USHORT, 3> reportLengths{};  // by report type
    // In the platform's order, the input reports' first, then the output and the feature reports'.
    std::vector<RecordedCapability> buttons;
    std::vector<RecordedCapability> values;
    std::vector<RecordedNode> nodes;
};

RecordedCollection GameController();
RecordedCollection Joystick();
RecordedCollection KeyboardWithLights();
RecordedCollection MouseWithAFeatureReport();
RecordedCollection SystemControl();
RecordedCollection VendorReceiver();
RecordedCollection VendorReportsOfAHeadset();
RecordedCollection VendorReportsOfAMouse();

}  // namespace simulator::hid
