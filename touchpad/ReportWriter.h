// Writes output reports to the touchpad: the queued ones on a thread of its own, others on the
// thread that calls.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

#include <windows.h>

#include "platform/Mutex.h"
#include "touchpad/IssueMonitor.h"
#include "touchpad/OutputQueue.h"
#include "touchpad/TouchpadDevice.h"

namespace vela {

// Locks: a write takes the device's query mutex, the last report's and the monitor's, one after the
// other. Any thread may call any operation, but Prepare, Start, Stop and Join only the thread that
// opens or closes the session.
class ReportWriter {
 public:
    explicit ReportWriter(TouchpadDevice& device) : device_(device) {}
    // Ends the process when the thread was not joined, as the destructor of std::thread does.
    ~ReportWriter();
    ReportWriter(const ReportWriter&) = delete;
    ReportWriter& operator=(const ReportWriter&) = delete;

    // Prepares a session: creates the write event, empties the queue and forgets the last report.
    // Returns false when the platform refuses the event; GetLastError has the reason.
    bool Prepare();
    // Starts the thread, which releases the touchpad when it ends. Throws std::system_error when it
    // cannot be started.
    void Start(std::shared_ptr<OpenTouchpad> touchpad);
    // Requests the thread to stop. Only IssueOrder::Last reports reach the touchpad afterwards.
    void Stop();
    void Join() { thread_.join(); }

    // Draws a place in the order of reports. Called before the report is composed.
    OutputQueue::Ticket Draw() { return OutputQueue::Ticket(queue_); }
    // Queues the report; waits for the write in flight. Always returns true.
    bool Enqueue(OutputQueue::Ticket ticket, std::vector<BYTE> report, bool force);

    // Writes on the calling thread. Returns true when the report was written, or equals the last
    // one and is not forced. A failure is logged, unless the touchpad is gone or the writer
    // stopped.
    bool WriteOutputReportInternal(OpenTouchpad& touchpad, const std::vector<BYTE>& report,
                                   bool force, IssueOrder order = IssueOrder::BeforeStop);

    // The last report that was written unforced; empty when none was.
    std::vector<BYTE> LastReport();
    void ForgetLastReport();
    IssueMonitor& Monitor() { return monitor_; }
    // Signals the write event, for a thread that still waits for a write.
    void SignalWriteEvent() { SetEvent(writeEvent_); }

 private:
    void WriteOutputReportThread(const std::shared_ptr<OpenTouchpad>& touchpad);
    bool IsLastReport(const std::vector<BYTE>& report);
    bool WriteAndWait(OpenTouchpad& touchpad, const std::vector<BYTE>& report, IssueOrder order);
    // Refused: the session is over. Failed and Pending set `error`.
    enum class IssueResult : std::uint8_t { Refused, Failed, Pending, Completed };
    IssueResult Issue(OpenTouchpad& touchpad, OverlappedOperation& write, IssueOrder order,
                      DWORD& error);
    bool WaitForWrite(OpenTouchpad& touchpad, OverlappedOperation& write, DWORD& error);
    bool GetWriteResult(OpenTouchpad& touchpad, OverlappedOperation& write, DWORD& error);

    TouchpadDevice& device_;  // has locks of its own
    OutputQueue queue_;       // has a lock of its own
    // A manual-reset event, as several writers may wait at once. Created by Prepare, and never
    // closed: the heartbeat of a session that has ended may still wait on it, and the value of a
    // closed handle may by then be another object of the host.
    std::atomic<HANDLE> writeEvent_{nullptr};
    std::thread thread_;     // used by the thread that opens or closes
    Mutex lastReportMutex_;  // guards: lastReport_
    std::vector<BYTE> lastReport_ VELA_GUARDED_BY(lastReportMutex_);
    IssueMonitor monitor_;  // has a lock of its own
};

}  // namespace vela
