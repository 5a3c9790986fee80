#include "touchpad/IssueMonitor.h"

#include "platform/Lock.h"

namespace vela {

void IssueMonitor::Restart() {
    const Lock lock(mutex_);
    stopped_ = false;
    last_.clear();
    watching_ = false;
}

void IssueMonitor::Stop() {
    const Lock lock(mutex_);
    stopped_ = true;
}

bool IssueMonitor::Enter(IssueOrder order) {
    const Lock lock(mutex_);
    if (stopped_ && order != IssueOrder::Last) return false;
    ++inside_;
    return true;
}

void IssueMonitor::Leave(const std::vector<BYTE>& report, bool accepted) {
    const Lock lock(mutex_);
    if (--inside_ == 0) left_.notify_all();
    if (!accepted) return;
    last_ = report;
    if (watching_ && report != watched_) seenAnother_ = true;
}

void IssueMonitor::NoteTimeout() {
    const Lock lock(mutex_);
    seenTimeout_ = true;
}

void IssueMonitor::Watch(const std::vector<BYTE>& report) {
    const Lock lock(mutex_);
    watching_ = true;
    watched_ = report;
    seenAnother_ = false;
    seenTimeout_ = false;
}

void IssueMonitor::AwaitLeaving() {
    const Lock lock(mutex_);
    while (inside_ > 0) left_.wait(mutex_);
}

bool IssueMonitor::HasSeenAnother() {
    const Lock lock(mutex_);
    return seenAnother_;
}

bool IssueMonitor::IsWatchedLast() {
    const Lock lock(mutex_);
    return last_ == watched_;
}

bool IssueMonitor::HasSeenTimeout() {
    const Lock lock(mutex_);
    return seenTimeout_;
}

}  // namespace vela
