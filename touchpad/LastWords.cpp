#include "touchpad/LastWords.h"

namespace vela {

void LastWords::Write() {
    writer_.Monitor().Watch(report_);
    written_ = writer_.WriteOutputReportInternal(touchpad_, report_, false, IssueOrder::Last);
}

void LastWords::RepeatIfOvertaken() {
    if (!IsOvertaken()) return;
    if (writer_.WriteOutputReportInternal(touchpad_, report_, true, IssueOrder::Last)) return;
    // Issuing the report reset the write event, which closing had signalled for a heartbeat that
    // waits for a write of its own.
    writer_.SignalWriteEvent();
}

bool LastWords::IsOvertaken() {
    IssueMonitor& monitor = writer_.Monitor();
    monitor.AwaitLeaving();
    if (monitor.HasSeenTimeout()) return false;
    if (monitor.HasSeenAnother()) return true;
    // A report that was dropped as equal to the last unforced one may still differ from a forced
    // one written after that.
    return written_ && !monitor.IsWatchedLast();
}

}  // namespace vela
