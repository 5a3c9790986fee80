// Runs a host's threads: each makes random calls, and every few calls one that marks the log.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <thread>

#include "testing/soak/Allowance.h"
#include "testing/soak/LogLines.h"
#include "testing/soak/Agent.h"

namespace soak {

// The number of marking calls of each thread that have returned.
using MarkCounts = std::array<std::uint32_t, kMarkingThreads>;

class HostThreads {
 public:
    HostThreads(const Agent& agent, Allowance& allowance);
    // Waits for the threads, which end once the allowance is over.
    void Join();

    MarkCounts Marks() const;
    std::int64_t Calls() const { return calls_; }

 private:
    void Run(unsigned thread);

    const Agent& agent_;
    Allowance& allowance_;
    std::array<std::atomic<std::uint32_t>, kMarkingThreads> marks_{};
    std::atomic<std::int64_t> calls_{0};
    std::array<std::thread, kMarkingThreads> threads_;
};

}  // namespace soak
