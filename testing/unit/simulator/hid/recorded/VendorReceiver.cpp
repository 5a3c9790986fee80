// Arrays of one usage and few slots.
#include "testing/unit/simulator/hid/recorded/RecordedCollections.h"

namespace simulator::hid {

RecordedCollection VendorReceiver() {
    RecordedCollection recorded;
    recorded.name = "VendorReceiver";
    recorded.descriptor = {0x06, 0x00, 0xFF, 0x09, 0x01, 0xA1, 0x01, 0x85, 0x10,
                           0x75, 0x08, 0x95, 0x06, 0x15, 0x00, 0x26, 0xFF, 0x00,
                           0x09, 0x01, 0x81, 0x00, 0x09, 0x01, 0x91, 0x00, 0xC0};
    recorded.page = 0xFF00;
    recorded.usage = 0x01;
    recorded.reportLengths = {7, 7, 0};
    recorded.buttons = {
        {HidP_Input, 16, 0xFF00, {0x01}, 0, 0, 0x00, {1, 0, 8, 6}},
        {HidP_Output, 16, 0xFF00, {0x01}, 0, 0, 0x00, {1, 0, 8, 6}},
    };
    recorded.nodes = {
        {0xFF00, 0x01, 0, 0, 0, 0, 1},
    };
    return recorded;
}

}  // namespace simulator::hid
