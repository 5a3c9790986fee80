// An array of single usages: listed last declared first, with data indices as declared.
#include "testing/unit/simulator/hid/recorded/RecordedCollections.h"

namespace simulator::hid {

RecordedCollection SystemControl() {
    RecordedCollection recorded;
    recorded.name = "SystemControl";
    recorded.descriptor = {0x05, 0x01, 0x09, 0x80, 0xA1, 0x01, 0x85, 0x04, 0x75, 0x02,
                           0x95, 0x01, 0x15, 0x01, 0x25, 0x03, 0x09, 0x82, 0x09, 0x81,
                           0x09, 0x83, 0x81, 0x60, 0x75, 0x06, 0x81, 0x03, 0xC0};
    recorded.page = 0x01;
    recorded.usage = 0x80;
    recorded.reportLengths = {2, 0, 0};
    recorded.buttons = {
        {HidP_Input, 4, 0x01, {0x83}, 2, 0, 0x60, {1, 0, 2, 1}},
        {HidP_Input, 4, 0x01, {0x81}, 1, 0, 0x60, {1, 0, 2, 1}},
        {HidP_Input, 4, 0x01, {0x82}, 0, 0, 0x60, {1, 0, 2, 1}},
    };
    recorded.nodes = {
        {0x01, 0x80, 0, 0, 0, 0, 1},
    };
    return recorded;
}

}  // namespace simulator::hid
