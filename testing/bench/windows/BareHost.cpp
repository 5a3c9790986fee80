#include <mutex>
#include <stdexcept>

#include "hid/HidHeaders.h"
#include "testing/bench/Stopwatch.h"
#include "testing/bench/windows/Host.h"

namespace bench {
namespace {

// Light reports with all four buttons lit, the camera's light off or on.
constexpr std::size_t kLightReportSize = virtual_touchpad::kOutputReportLength;
constexpr BYTE kLightReports[2][kLightReportSize] = {{2, 0, 3, 3, 3, 0, 3, 0, 0x0F},
                                                     {2, 3, 0, 3, 3, 0, 3, 0, 0x0F}};

}  // namespace

BareHost::BareHost(const std::wstring& path, virtual_touchpad::TouchpadControl& touchpad,
                   WritesOn thread, Queries queries)
    : touchpad_(touchpad),
      queries_(queries),
      file_(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                        FILE_FLAG_OVERLAPPED, nullptr)),
      readEvent_(CreateEventW(nullptr, FALSE, FALSE, nullptr)),
      writeEvent_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {
    if (file_ == INVALID_HANDLE_VALUE) throw std::runtime_error("the touchpad does not open");
    if (thread == WritesOn::AThreadOfItsOwn) writer_ = std::thread(&BareHost::WriteQueued, this);
    reader_ = std::thread(&BareHost::Read, this);
}

BareHost::~BareHost() {
    {
        const std::lock_guard<vela::SlimMutex> lock(mutex_);
        stop_ = true;
        queued_.notify_all();
    }
    touchpad_.SendEvents({});
    reader_.join();
    if (writer_.joinable()) writer_.join();
    for (const HANDLE handle : {file_, readEvent_, writeEvent_}) CloseHandle(handle);
}

void BareHost::Read() {
    BYTE report[3] = {};
    for (std::size_t press = 0;; ++press) {
        OVERLAPPED read{};
        read.hEvent = readEvent_;
        if (!Finish(ReadFile(file_, report, sizeof(report), nullptr, &read), read) || stop_) return;
        seen_ = Nanoseconds();
        if (!writer_.joinable()) {
            Write(press);
            continue;
        }
        QueryConnection();
        {
            const std::lock_guard<vela::SlimMutex> lock(mutex_);
            queue_.push_back(press);
        }
        queued_.notify_all();
    }
}

void BareHost::WriteQueued() {
    const std::lock_guard<vela::SlimMutex> lock(mutex_);
    while (!stop_) {
        while (queue_.empty() && !stop_) queued_.wait(mutex_);
        while (!queue_.empty()) {
            QueryConnection();
            Write(queue_.front());
            queue_.pop_front();
        }
    }
}

bool BareHost::Write(std::size_t press) {
    OVERLAPPED write{};
    write.hEvent = writeEvent_;
    const BYTE(&lights)[kLightReportSize] = kLightReports[press % 2];
    return Finish(WriteFile(file_, lights, sizeof(lights), nullptr, &write), write);
}

void BareHost::QueryConnection() const {
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    if (queries_ == Queries::None || !HidD_GetPreparsedData(file_, &preparsed)) return;
    HidD_FreePreparsedData(preparsed);
}

bool BareHost::Finish(BOOL done, OVERLAPPED& overlapped) {
    if (!done && GetLastError() != ERROR_IO_PENDING) return false;
    if (!done) WaitForSingleObject(overlapped.hEvent, INFINITE);
    DWORD transferred = 0;
    return GetOverlappedResult(file_, &overlapped, &transferred, TRUE) != FALSE;
}

}  // namespace bench
