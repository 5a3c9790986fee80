#include "testing/simulator/ReportRules.h"

#include <cstdint>

namespace simulator {

DWORD CheckReport(const hid::Collection& collection, HIDP_REPORT_TYPE type, const void* bytes,
                  std::size_t length, std::size_t& reportLength) {
    if (length == 0) return ERROR_INVALID_USER_BUFFER;
    if (bytes == nullptr) return ERROR_NOACCESS;
    const std::uint8_t reportId = *static_cast<const std::uint8_t*>(bytes);
    const auto known = hid::ReportLength(collection, type, reportId);
    if (!known || length < *known) return ERROR_INVALID_PARAMETER;
    reportLength = *known;
    return ERROR_SUCCESS;
}

}  // namespace simulator
