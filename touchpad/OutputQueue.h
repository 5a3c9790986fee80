// The reports that wait to be written, in the order of their tickets.
//
// A report is composed from the whole state, so the one whose composition began last is the newest
// and has to be written last. Threads compose without a lock and may overtake one another: each
// draws a ticket before it composes, and a report that arrives before one with an earlier ticket
// waits for it here. Its caller does not.
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <vector>

#include <windows.h>

#include "platform/SlimMutex.h"

namespace vela {

struct OutputItem {
    std::vector<BYTE> report;
    bool force;  // written even when equal to the last report
};

// Any thread may call any operation; only the writer calls Take.
class OutputQueue {
 public:
    // A place in the order. Its owner passes it to Put; one that is destroyed unused is skipped, so
    // that later ones do not wait for it.
    class Ticket {
     public:
        explicit Ticket(OutputQueue& queue) : queue_(&queue), number_(queue.next_++) {}
        ~Ticket();
        Ticket(Ticket&& other) noexcept : queue_(other.queue_), number_(other.number_) {
            other.queue_ = nullptr;
        }
        Ticket(const Ticket&) = delete;
        Ticket& operator=(const Ticket&) = delete;
        Ticket& operator=(Ticket&&) = delete;

     private:
        friend class OutputQueue;
        OutputQueue* queue_;  // null: used
        std::uint64_t number_;
    };

    OutputQueue() = default;
    OutputQueue(const OutputQueue&) = delete;
    OutputQueue& operator=(const OutputQueue&) = delete;

    // Empties the queue for a new session. Tickets that were drawn before are void: what an earlier
    // session left unsent was meant for another state, perhaps another device.
    void Restart();
    // Makes Take return nullopt from now on.
    void Stop();

    // Queues the item behind those of all earlier tickets. Returns when the writes in flight are
    // over, so that a slow device slows its host down instead of piling up reports. All waiting
    // callers return together, with their reports queued (except those that wait for an earlier
    // ticket), so none starves behind quicker callers or waits for a suspended one.
    void Put(Ticket ticket, OutputItem item);

    // Ends the write of the item taken before and waits for the next. Returns nullopt once stopped.
    std::optional<OutputItem> Take();

 private:
    // Empty when the ticket was destroyed unused.
    using Report = std::optional<OutputItem>;

    void Put(std::uint64_t number, Report report) VELA_EXCLUDES(mutex_);
    void Arrive(std::uint64_t number, Report report) VELA_REQUIRES(mutex_);
    void Append(Report report) VELA_REQUIRES(mutex_);
    void EndWrites() VELA_REQUIRES(mutex_);

    std::atomic<std::uint64_t> next_{0};                 // the next ticket; no lock
    SlimMutex mutex_;                                    // guards: all below
    SlimConditionVariable queued_;                       // the writer waits for it
    SlimConditionVariable written_;                      // callers wait for it
    std::uint64_t serving_ VELA_GUARDED_BY(mutex_) = 0;  // the ticket that is to arrive next
    std::map<std::uint64_t, Report> early_ VELA_GUARDED_BY(mutex_);  // waiting for earlier tickets
    std::deque<OutputItem> arrived_ VELA_GUARDED_BY(mutex_);  // to be queued after the writes
    std::deque<OutputItem> queue_ VELA_GUARDED_BY(mutex_);    // the writer takes from it
    bool writing_ VELA_GUARDED_BY(mutex_) = false;
    std::uint64_t ended_ VELA_GUARDED_BY(mutex_) = 0;  // how often the writer emptied the queue
    bool stopped_ VELA_GUARDED_BY(mutex_) = false;
};

}  // namespace vela
