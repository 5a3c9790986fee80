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

// All operations are of whoever opens and closes the session.
class ReportReader {
 public:
    // Called on the reader's thread with each report, report id first, and with a list of as many
    // usages as a report can hold at once, whatever is in it.
    using Handler = std::function<void(const CHIDInformation& information,
                                       std::vector<BYTE>& report, std::vector<USAGE>& usages)>;

    ReportReader(TouchpadDevice& device, Handler handler)
        : device_(device), handler_(std::move(handler)) {}
    // Ends the process when the thread was not joined, as the thread object's own end would.
    ~ReportReader();
    ReportReader(const ReportReader&) = delete;
    ReportReader& operator=(const ReportReader&) = delete;

    // Prepares a session: creates the read event. False when the platform refuses it, with its last
    // error.
    bool Prepare();
    // The thread lets go of the touchpad when it ends. Throws std::system_error when it cannot be
    // started.
    void Start(std::shared_ptr<OpenTouchpad> touchpad);
    // Tells the thread to stop, which it does when the report that it handles is done.
    void Stop();
    // Throws std::system_error on the reader's own thread: it cannot wait for itself.
    void Join() { thread_.join(); }

 private:
    void ReadInputReportThread(const std::shared_ptr<OpenTouchpad>& touchpad);
    bool ReadInputReport(OpenTouchpad& touchpad, OverlappedOperation& read);
    bool Issue(OpenTouchpad& touchpad, OverlappedOperation& read);

    TouchpadDevice& device_;  // has locks of its own
    const Handler handler_;
    // Auto-reset: one thread waits on it. Created by Prepare and, like the write event, never
    // closed.
    std::atomic<HANDLE> readEvent_{nullptr};
    std::thread thread_;             // of whoever opens and closes
    Mutex readMutex_;                // guards: issuing a read against the stop
    std::atomic<bool> stop_{false};  // set under readMutex_
};

}  // namespace vela
