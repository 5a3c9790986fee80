#include "testing/parity/PreparsedData.h"
#include "testing/simulator/hid/ReportDescriptor.h"

namespace parity {

PreparsedData Parse(const std::vector<std::uint8_t>& descriptor) {
    return PreparsedData(
        simulator::hid::AllocatePreparsedData(
            simulator::hid::ParseReportDescriptor(descriptor).at(0)),
        [](PHIDP_PREPARSED_DATA preparsed) { simulator::hid::FreePreparsedData(preparsed); });
}

}  // namespace parity
