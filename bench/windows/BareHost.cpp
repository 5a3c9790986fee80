#include <stdexcept>

#include "bench/Stopwatch.h"
#include "bench/windows/Host.h"

namespace bench {
namespace {

// All four buttons lit, the camera's light on or off.
constexpr std::size_t kLightReportSize = virtual_touchpad::kOutputReportLength;
constexpr BYTE kLightReports[2][kLightReportSize] = {{2, 0, 3, 3, 3, 0, 3, 0, 0x0F},
                                                     {2, 3, 0, 3, 3, 0, 3, 0, 0x0F}};

}  // namespace

BareHost::BareHost(const std::wstring& path, virtual_touchpad::TouchpadControl& touchpad)
    : touchpad_(touchpad),
      file_(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                        FILE_FLAG_OVERLAPPED, nullptr)),
      event_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {
    if (file_ == INVALID_HANDLE_VALUE) throw std::runtime_error("the touchpad does not open");
    thread_ = std::thread(&BareHost::Run, this);
}

BareHost::~BareHost() {
    stop_ = true;
    touchpad_.SendEvents({});
    thread_.join();
    CloseHandle(file_);
    CloseHandle(event_);
}

void BareHost::Run() {
    BYTE report[3] = {};
    for (std::size_t presses = 0;; ++presses) {
        OVERLAPPED read{};
        read.hEvent = event_;
        if (!Finish(ReadFile(file_, report, sizeof(report), nullptr, &read), read) || stop_) return;
        seen_ = Nanoseconds();
        OVERLAPPED write{};
        write.hEvent = event_;
        const BYTE(&lights)[kLightReportSize] = kLightReports[presses % 2];
        if (!Finish(WriteFile(file_, lights, sizeof(lights), nullptr, &write), write)) return;
    }
}

bool BareHost::Finish(BOOL done, OVERLAPPED& overlapped) {
    if (!done && GetLastError() != ERROR_IO_PENDING) return false;
    if (!done) WaitForSingleObject(event_, INFINITE);
    DWORD transferred = 0;
    return GetOverlappedResult(file_, &overlapped, &transferred, TRUE) != FALSE;
}

}  // namespace bench
