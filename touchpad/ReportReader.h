// Reads input reports from the touchpad, one after the other, on a thread of its own.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include <windows.h>

#include "platform/Mutex.h"
#include "touchpad/TouchpadDevice.h"

namespace vela {

// Only the thread that opens or closes the session calls these operations.
class ReportReader {
 public:
    // The reader's thread calls it with each report, report id first, and with a buffer for as many
    // usages as a report can hold at once, of any content.
    using Handler = std::function<void(const CHIDInformation& information,
                                       std::vector<BYTE>& report, std::vector<USAGE>& usages)>;

    ReportReader(TouchpadDevice& device, Handler handler)
        : device_(device), handler_(std::move(handler)) {}
    // Ends the process when the thread was not joined, as the destructor of std::thread does.
    ~ReportReader();
    ReportReader(const ReportReader&) = delete;
    ReportReader& operator=(const ReportReader&) = delete;

    // Prepares a session: creates the read event. Returns false when the platform refuses it;
    // GetLastError has the reason.
    bool Prepare();
    // Starts the thread, which releases the touchpad when it ends. Throws std::system_error when it
    // cannot be started.
    void Start(std::shared_ptr<OpenTouchpad> touchpad);
    // Requests the thread to stop, which it does once the current report is handled.
    void Stop();
    // Throws std::system_error on the reader's own thread, which cannot wait for itself.
    void Join() { thread_.join(); }

 private:
    void ReadInputReportThread(const std::shared_ptr<OpenTouchpad>& touchpad);
    bool ReadInputReport(OpenTouchpad& touchpad, OverlappedOperation& read);
    bool Issue(OpenTouchpad& touchpad, OverlappedOperation& read);

    TouchpadDevice& device_;  // has locks of its own
    const Handler handler_;
    // An auto-reset event, as one thread waits on it. Created by Prepare and, like the write event,
    // never closed.
    std::atomic<HANDLE> readEvent_{nullptr};
    std::thread thread_;             // used by the thread that opens or closes
    Mutex readMutex_;                // guards: issuing a read against the stop
    std::atomic<bool> stop_{false};  // set under readMutex_
};

}  // namespace vela
