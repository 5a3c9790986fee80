#include "testing/simulator/NtStatus.h"

namespace simulator {
namespace {

struct Pair {
    DWORD error;
    std::uint32_t status;
};

constexpr Pair kPairs[] = {
    {ERROR_SUCCESS, 0x00000000},
    {ERROR_GEN_FAILURE, 0xC0000001},           // UNSUCCESSFUL
    {ERROR_INVALID_HANDLE, 0xC0000008},        // INVALID_HANDLE
    {ERROR_INVALID_PARAMETER, 0xC000000D},     // INVALID_PARAMETER
    {ERROR_FILE_NOT_FOUND, 0xC000000E},        // NO_SUCH_DEVICE
    {ERROR_INVALID_FUNCTION, 0xC0000010},      // INVALID_DEVICE_REQUEST
    {ERROR_NOT_ENOUGH_MEMORY, 0xC0000017},     // NO_MEMORY
    {ERROR_ACCESS_DENIED, 0xC0000022},         // ACCESS_DENIED
    {ERROR_NO_SYSTEM_RESOURCES, 0xC000009A},   // INSUFFICIENT_RESOURCES
    {ERROR_DEVICE_NOT_CONNECTED, 0xC000009D},  // DEVICE_NOT_CONNECTED
    {ERROR_NOT_READY, 0xC00000A3},             // DEVICE_NOT_READY
    {ERROR_SEM_TIMEOUT, 0xC00000B5},           // IO_TIMEOUT
    {ERROR_NOT_SUPPORTED, 0xC00000BB},         // NOT_SUPPORTED
    {ERROR_OPERATION_ABORTED, 0xC0000120},     // CANCELLED
    {ERROR_IO_DEVICE, 0xC0000185},             // IO_DEVICE_ERROR
    {ERROR_INVALID_USER_BUFFER, 0xC0000206},   // INVALID_BUFFER_SIZE
};

// Any other error is carried in the facility that the platform reserves for last errors.
constexpr std::uint32_t kErrorFacility = 0xC0070000;

}  // namespace

NTSTATUS StatusOf(DWORD error) {
    for (const Pair& pair : kPairs) {
        if (pair.error == error) return static_cast<NTSTATUS>(pair.status);
    }
    return static_cast<NTSTATUS>(kErrorFacility | (error & 0xFFFF));
}

// A status that is not negative is a success, STATUS_PENDING included.
DWORD ErrorOf(NTSTATUS status) {
    if (status >= 0) return ERROR_SUCCESS;
    const auto value = static_cast<std::uint32_t>(status);
    for (const Pair& pair : kPairs) {
        if (pair.status == value) return pair.error;
    }
    if ((value & 0xFFFF0000) == kErrorFacility) return value & 0xFFFF;
    return ERROR_GEN_FAILURE;
}

}  // namespace simulator
