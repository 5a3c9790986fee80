// The order in which reports are queued: that of their tickets, whoever comes first.
#include "touchpad/OutputQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include "platform/Lock.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vela::OutputItem;
using vela::OutputQueue;

OutputItem Item(BYTE byte, bool force = false) { return {{byte}, force}; }

// The first bytes of all that is queued, taken off the queue.
std::vector<int> TakeAll(OutputQueue& queue) {
    const vela::Lock lock(queue.Lockable());
    std::vector<int> bytes;
    while (!queue.IsEmpty()) bytes.push_back(queue.Take().report.at(0));
    return bytes;
}

TEST(OutputQueueTest, KeepsTheBytesAndTheForceFlag) {
    OutputQueue queue;
    queue.Put(OutputQueue::Ticket(queue), Item(7, true));
    const vela::Lock lock(queue.Lockable());
    const OutputItem item = queue.Take();
    EXPECT_THAT(item.report, ElementsAre(7));
    EXPECT_TRUE(item.force);
    EXPECT_TRUE(queue.IsEmpty());
}

TEST(OutputQueueTest, QueuesInTheOrderOfTheTickets) {
    OutputQueue queue;
    OutputQueue::Ticket first(queue);
    OutputQueue::Ticket second(queue);
    OutputQueue::Ticket third(queue);
    queue.Put(std::move(third), Item(3));
    queue.Put(std::move(second), Item(2));
    EXPECT_THAT(TakeAll(queue), IsEmpty());
    queue.Put(std::move(first), Item(1));
    EXPECT_THAT(TakeAll(queue), ElementsAre(1, 2, 3));
}

TEST(OutputQueueTest, QueuesAtOnceWhatNothingEarlierIsMissingFor) {
    OutputQueue queue;
    OutputQueue::Ticket first(queue);
    OutputQueue::Ticket second(queue);
    OutputQueue::Ticket third(queue);
    OutputQueue::Ticket fourth(queue);
    queue.Put(std::move(fourth), Item(4));
    queue.Put(std::move(second), Item(2));
    queue.Put(std::move(first), Item(1));
    EXPECT_THAT(TakeAll(queue), ElementsAre(1, 2));
    queue.Put(std::move(third), Item(3));
    EXPECT_THAT(TakeAll(queue), ElementsAre(3, 4));
}

TEST(OutputQueueTest, ATicketWhoseOwnerBreaksOffHoldsNobodyUp) {
    OutputQueue queue;
    std::optional<OutputQueue::Ticket> first(std::in_place, queue);
    OutputQueue::Ticket second(queue);
    queue.Put(std::move(second), Item(2));
    EXPECT_THAT(TakeAll(queue), IsEmpty());
    first.reset();
    EXPECT_THAT(TakeAll(queue), ElementsAre(2));
}

TEST(OutputQueueTest, RestartForgetsWhatIsQueuedAndWhatComesLate) {
    OutputQueue queue;
    OutputQueue::Ticket early(queue);
    OutputQueue::Ticket waiting(queue);
    queue.Put(OutputQueue::Ticket(queue), Item(9));
    queue.Put(std::move(waiting), Item(8));
    queue.Restart();
    queue.Put(OutputQueue::Ticket(queue), Item(1));
    queue.Put(std::move(early), Item(7));
    EXPECT_THAT(TakeAll(queue), ElementsAre(1));
}

TEST(OutputQueueTest, RestartIsHeldUpByNoEarlierTicket) {
    OutputQueue queue;
    const OutputQueue::Ticket never(queue);
    queue.Restart();
    queue.Put(OutputQueue::Ticket(queue), Item(1));
    EXPECT_THAT(TakeAll(queue), ElementsAre(1));
}

TEST(OutputQueueTest, WakesAWriterThatWaits) {
    OutputQueue queue;
    std::thread writer([&] {
        const vela::Lock lock(queue.Lockable());
        while (queue.IsEmpty()) queue.Wait();
    });
    queue.Put(OutputQueue::Ticket(queue), Item(1));
    writer.join();
}

TEST(OutputQueueTest, LosesNothingOfManyThreadsAndKeepsTheOrderOfEach) {
    constexpr int kThreads = 4;
    constexpr int kReports = 60;
    OutputQueue queue;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&queue, thread] {
            for (int i = 0; i < kReports; ++i) {
                queue.Put(OutputQueue::Ticket(queue), Item(static_cast<BYTE>(i * 4 + thread)));
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    std::vector<std::vector<int>> byThread(kThreads);
    for (const int byte : TakeAll(queue)) byThread[byte % 4].push_back(byte / 4);
    std::vector<int> all(kReports);
    for (int i = 0; i < kReports; ++i) all[i] = i;
    EXPECT_THAT(byThread, testing::Each(all));
}

}  // namespace
