// The reports that wait to be written, in the order of their tickets.
//
// A report is composed from the whole state, so the one that was begun last shows all that was set
// before, and has to be written last. Composing takes no lock, and its threads may overtake one
// another: each draws a ticket before it composes, and a report that comes before one with an
// earlier ticket waits for it here. Its caller does not.
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

// Any thread may call any operation; Take is the writer's.
class OutputQueue {
 public:
    // A place in the order. Its owner passes it to Put; one that is destroyed before lets the
    // later ones go ahead.
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
    // From now on Take returns nothing.
    void Stop();

    // Queues the item behind those of all earlier tickets. Returns when the writes in flight are
    // over: a slow device holds its host back instead of piling reports up. All callers that wait
    // are let go together, and their reports were queued by then (save those that miss an earlier
    // ticket's), so nobody starves behind quicker callers or waits for a suspended one.
    void Put(Ticket ticket, OutputItem item);

    // Ends the write of the item taken before, and waits for the next one. Nothing once stopped.
    std::optional<OutputItem> Take();

 private:
    // Nothing: the ticket's owner broke off.
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
    std::map<std::uint64_t, Report> early_ VELA_GUARDED_BY(mutex_);  // for their ticket's turn
    std::deque<OutputItem> arrived_ VELA_GUARDED_BY(mutex_);  // to be queued after the writes
    std::deque<OutputItem> queue_ VELA_GUARDED_BY(mutex_);    // what the writer takes from
    bool writing_ VELA_GUARDED_BY(mutex_) = false;
    std::uint64_t ended_ VELA_GUARDED_BY(mutex_) = 0;  // how often the writer emptied the queue
    bool stopped_ VELA_GUARDED_BY(mutex_) = false;
};

}  // namespace vela
