#include "touchpad/ReportReader.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "log/ILog.h"
#include "platform/Lock.h"

namespace vela {
namespace {

constexpr const char* kReader = "ReadInputReportThread";

}  // namespace

ReportReader::~ReportReader() {
    if (thread_.joinable()) std::terminate();
}

bool ReportReader::Prepare() {
    readEvent_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    stop_ = false;
    return readEvent_ != nullptr;
}

void ReportReader::Start(std::shared_ptr<OpenTouchpad> touchpad) {
    thread_ = std::thread(&ReportReader::ReadInputReportThread, this, std::move(touchpad));
}

void ReportReader::Stop() {
    const Lock lock(readMutex_);
    stop_ = true;
    SetEvent(readEvent_);
}

void ReportReader::ReadInputReportThread(const std::shared_ptr<OpenTouchpad>& touchpad) {
    const CHIDInformation& information = *touchpad->information;
    const std::size_t length = information.caps.InputReportByteLength;
    if (length == 0) return;
    OverlappedOperations& operations = device_.Operations();
    OverlappedOperations::Pointer read = operations.Make(std::vector<BYTE>(length));
    std::vector<USAGE> usages(HidP_MaxUsageListLength(HidP_Input, 0, information.preparsedData));

    while (!stop_) {
        // After a failed wait the read may still be pending in the kernel.
        if (read->IsWithKernel()) read = operations.Make(std::vector<BYTE>(length));
        std::fill(read->bytes.begin(), read->bytes.end(), BYTE{0});
        if (!ReadInputReport(*touchpad, *read)) continue;
        GetLogger()->Log(kLogInfo, kReader, "HandleInputReport reportID 0x%x", read->bytes[0]);
        handler_(information, read->bytes, usages);
    }
}

// Returns true when a report was read; false on a failure, and when the thread is to stop.
bool ReportReader::ReadInputReport(OpenTouchpad& touchpad, OverlappedOperation& read) {
    {
        const Lock lock(readMutex_);
        if (stop_) return false;
        if (Issue(touchpad, read)) return true;
    }
    // The error is ignored: on an unplugged device every read fails at once, and the thread has to
    // sleep until it is stopped.
    WaitForSingleObject(readEvent_, INFINITE);
    if (stop_) return false;
    return touchpad.handle.Use([&](HANDLE device) {
        DWORD transferred = 0;
        return GetOverlappedResult(device, &read.overlapped, &transferred, TRUE) != FALSE;
    });
}

// Returns true when the read completed at once.
bool ReportReader::Issue(OpenTouchpad& touchpad, OverlappedOperation& read) {
    read.Prepare(readEvent_);
    return touchpad.handle.Use([&](HANDLE device) {
        const BOOL completed =
            ReadFile(device, read.bytes.data(), static_cast<DWORD>(read.bytes.size()), nullptr,
                     &read.overlapped);
        read.Issued(completed || GetLastError() == ERROR_IO_PENDING);
        return completed != FALSE;
    });
}

}  // namespace vela
