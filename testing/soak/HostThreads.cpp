#include "testing/soak/HostThreads.h"

#include "testing/soak/RandomCalls.h"

namespace soak {

HostThreads::HostThreads(const Agent& agent, Allowance& allowance)
    : agent_(agent), allowance_(allowance) {
    for (unsigned i = 0; i < kMarkingThreads; ++i) {
        threads_[i] = std::thread(&HostThreads::Run, this, i);
    }
}

void HostThreads::Join() {
    for (std::thread& thread : threads_) thread.join();
}

MarkCounts HostThreads::Marks() const {
    MarkCounts counts{};
    for (unsigned i = 0; i < kMarkingThreads; ++i) counts[i] = marks_[i];
    return counts;
}

void HostThreads::Run(unsigned thread) {
    Random random(std::random_device{}());
    std::uint32_t marks = 0;
    while (allowance_.Take()) {
        ++calls_;
        if (Below(random, 4) != 0) {
            MakeRandomCall(agent_, random);
        } else if (agent_.EnableSingleButton(Mark{thread, marks}.ButtonId(), 1) != 0) {
            // Without a session the call fails and logs nothing: the number is used again.
            marks_[thread] = ++marks;
        }
    }
}

}  // namespace soak
