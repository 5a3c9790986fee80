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
    early_.clear();
    serving_ = next_;
}

void OutputQueue::Put(Ticket ticket, OutputItem item) {
    ticket.queue_ = nullptr;
    Put(ticket.number_, std::move(item));
}

void OutputQueue::Put(std::uint64_t number, Report report) {
    const Lock lock(mutex_);
    if (number < serving_) return;
    if (number > serving_) {
        early_.emplace(number, std::move(report));
        return;
    }
    Append(std::move(report));
    while (!early_.empty() && early_.begin()->first == serving_) {
        Append(std::move(early_.begin()->second));
        early_.erase(early_.begin());
    }
    changed_.notify_all();
}

void OutputQueue::Append(Report report) {
    ++serving_;
    if (report) queue_.push_back(std::move(*report));
}

OutputItem OutputQueue::Take() {
    OutputItem item = std::move(queue_.front());
    queue_.pop_front();
    return item;
}

void OutputQueue::WakeWriter() {
    const Lock lock(mutex_);
    changed_.notify_all();
}

}  // namespace vela
