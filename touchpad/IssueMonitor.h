// Watches the reports that are issued to the touchpad, so that closing can check whether its own
// report was the last.
#pragma once

#include <cstdint>
#include <vector>

#include <windows.h>

#include "platform/SlimMutex.h"

namespace vela {

// Whether a report may still be issued after the session was stopped.
enum class IssueOrder : std::uint8_t { BeforeStop, Last };

// Any thread may call any operation. No lock is held while a report is issued: several threads may
// issue one at once.
class IssueMonitor {
 public:
    IssueMonitor() = default;
    IssueMonitor(const IssueMonitor&) = delete;
    IssueMonitor& operator=(const IssueMonitor&) = delete;

    // Begins a new session.
    void Restart();
    // Admits only reports with IssueOrder::Last from now on.
    void Stop();

    // Enclose the issue of each report. When Enter returns false the report must not be issued.
    bool Enter(IssueOrder order);
    void Leave(const std::vector<BYTE>& report, bool accepted);
    // Notes that an issued report ran into its time limit.
    void NoteTimeout();

    // Watches for reports other than this one, from now on.
    void Watch(const std::vector<BYTE>& report);
    // Waits until no report is being issued any more. Called after Stop.
    void AwaitLeaving();
    // Whether the platform accepted a report other than the watched one, at the same time or later.
    bool HasSeenAnother();
    // Whether the last report that the platform accepted is the watched one.
    bool IsWatchedLast();
    bool HasSeenTimeout();

 private:
    SlimMutex mutex_;  // guards: all below
    SlimConditionVariable left_;
    bool stopped_ VELA_GUARDED_BY(mutex_) = true;
    int inside_ VELA_GUARDED_BY(mutex_) = 0;
    std::vector<BYTE> last_ VELA_GUARDED_BY(mutex_);
    bool watching_ VELA_GUARDED_BY(mutex_) = false;
    std::vector<BYTE> watched_ VELA_GUARDED_BY(mutex_);
    bool seenAnother_ VELA_GUARDED_BY(mutex_) = false;
    bool seenTimeout_ VELA_GUARDED_BY(mutex_) = false;
};

}  // namespace vela
