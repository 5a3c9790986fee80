#include "touchpad/OutputQueue.h"

#include <utility>

#include "platform/Lock.h"

namespace vela {

OutputQueue::Ticket::~Ticket() {
    if (queue_ != nullptr) queue_->Put(number_, std::nullopt);
}

void OutputQueue::Restart() {
    const Lock lock(mutex_);
    queue_.clear();
    arrived_.clear();
    early_.clear();
    serving_ = next_;
    stopped_ = false;
}

void OutputQueue::Stop() {
    const Lock lock(mutex_);
    stopped_ = true;
    queued_.notify_all();
}

void OutputQueue::Put(Ticket ticket, OutputItem item) {
    ticket.queue_ = nullptr;
    Put(ticket.number_, std::move(item));
}

void OutputQueue::Put(std::uint64_t number, Report report) {
    {
        const Lock lock(mutex_);
        if (number < serving_) return;
        const bool isReport = report.has_value();
        Arrive(number, std::move(report));
        if (writing_) {
            const std::uint64_t ended = ended_;
            while (isReport && writing_ && ended_ == ended) written_.wait(mutex_);
            return;
        }
        EndWrites();
    }
    // The writer needs the lock as soon as it is awake.
    queued_.notify_all();
}

void OutputQueue::Arrive(std::uint64_t number, Report report) {
    if (number > serving_) {
        early_.emplace(number, std::move(report));
        return;
    }
    Append(std::move(report));
    while (!early_.empty() && early_.begin()->first == serving_) {
        Append(std::move(early_.begin()->second));
        early_.erase(early_.begin());
    }
}

void OutputQueue::Append(Report report) {
    ++serving_;
    if (report) arrived_.push_back(std::move(*report));
}

std::optional<OutputItem> OutputQueue::Take() {
    const Lock lock(mutex_);
    if (queue_.empty() || stopped_) EndWrites();
    while (queue_.empty() && !stopped_) queued_.wait(mutex_);
    if (stopped_) return std::nullopt;
    writing_ = true;
    OutputItem item = std::move(queue_.front());
    queue_.pop_front();
    return item;
}

// Queues the reports that arrived during the writes, and wakes their callers.
void OutputQueue::EndWrites() {
    for (OutputItem& item : arrived_) queue_.push_back(std::move(item));
    arrived_.clear();
    if (!writing_) return;
    writing_ = false;
    ++ended_;
    written_.notify_all();
}

}  // namespace vela
