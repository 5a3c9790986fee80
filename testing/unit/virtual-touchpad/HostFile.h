// A HID collection as a host has it open, with overlapped reads and writes.
#pragma once

#include <windows.h>
extern "C" {
#include <hidsdi.h>
}

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/control/VirtualDevice.h"

namespace virtual_touchpad {

constexpr DWORD kReadWrite = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;
constexpr DWORD kExclusive = 0;
constexpr std::chrono::milliseconds kSoon{5000};
constexpr std::chrono::milliseconds kShortly{100};

// One overlapped read or write. Its file must outlive it.
class Transfer {
 public:
    Transfer(HANDLE file, Report bytes)
        : buffer(std::move(bytes)),
          file_(file),
          event_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
        overlapped_.hEvent = event_;
    }
    ~Transfer() {
        if (pending_) {
            CancelIoEx(file_, &overlapped_);
            DWORD size = 0;
            GetOverlappedResult(file_, &overlapped_, &size, TRUE);
        }
        CloseHandle(event_);
    }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    void StartRead() {
        Started(ReadFile(file_, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr,
                         &overlapped_));
    }
    void StartWrite() {
        Started(WriteFile(file_, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr,
                          &overlapped_));
    }

    bool WaitFor(std::chrono::milliseconds timeout) const {
        return WaitForSingleObject(event_, static_cast<DWORD>(timeout.count())) == WAIT_OBJECT_0;
    }

    // Returns the error and the size after the end. A transfer that could not start has its error.
    DWORD Result(DWORD* size) {
        *size = 0;
        if (!pending_) return error_;
        pending_ = false;
        return GetOverlappedResult(file_, &overlapped_, size, TRUE) ? ERROR_SUCCESS
                                                                    : GetLastError();
    }

    Report buffer;

 private:
    void Started(BOOL success) {
        error_ = success ? ERROR_SUCCESS : GetLastError();
        pending_ = success || error_ == ERROR_IO_PENDING;
    }

    HANDLE file_;
    HANDLE event_;
    OVERLAPPED overlapped_ = {};
    DWORD error_ = ERROR_SUCCESS;
    bool pending_ = false;
};

class HostFile {
 public:
    explicit HostFile(const std::wstring& path, DWORD access = kReadWrite, DWORD share = kShared)
        : file_(CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING,
                            FILE_FLAG_OVERLAPPED, nullptr)) {}
    ~HostFile() { Close(); }
    HostFile(const HostFile&) = delete;
    HostFile& operator=(const HostFile&) = delete;

    void Close() {
        if (IsOpen()) CloseHandle(file_);
        file_ = INVALID_HANDLE_VALUE;
    }
    bool IsOpen() const { return file_ != INVALID_HANDLE_VALUE; }
    HANDLE Handle() const { return file_; }

    std::unique_ptr<Transfer> Read(std::size_t size) {
        auto transfer = std::make_unique<Transfer>(file_, Report(size));
        transfer->StartRead();
        return transfer;
    }
    std::unique_ptr<Transfer> Write(const Report& report) {
        auto transfer = std::make_unique<Transfer>(file_, report);
        transfer->StartWrite();
        return transfer;
    }
    // Waits for the end and returns the error.
    DWORD WriteAndWait(const Report& report) {
        DWORD size = 0;
        return Write(report)->Result(&size);
    }

    // Returns the error of a call that works with any access and share mode.
    DWORD AttributesError() const {
        HIDD_ATTRIBUTES attributes = {};
        attributes.Size = sizeof(attributes);
        return HidD_GetAttributes(file_, &attributes) ? ERROR_SUCCESS : GetLastError();
    }

 private:
    HANDLE file_;
};

}  // namespace virtual_touchpad
