// Reports are queued in the order of their tickets, not of their arrival.
#include "touchpad/OutputQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using vela::OutputItem;
using vela::OutputQueue;

OutputItem Item(BYTE byte, bool force = false) { return {{byte}, force}; }

// Takes all reports off the queue, stops it, and returns their first bytes.
std::vector<int> TakeAll(OutputQueue& queue) {
    std::vector<int> bytes;
    constexpr BYTE kEnd = 255;
    queue.Put(OutputQueue::Ticket(queue), Item(kEnd));
    for (;;) {
        const int byte = queue.Take()->report.at(0);
        if (byte == kEnd) break;
        bytes.push_back(byte);
    }
    queue.Stop();
    EXPECT_FALSE(queue.Take());
    return bytes;
}

// Takes `count` reports that are already queued.
std::vector<int> Take(OutputQueue& queue, int count) {
    std::vector<int> bytes;
    for (int i = 0; i < count; ++i) bytes.push_back(queue.Take()->report.at(0));
    return bytes;
}

class OutputQueueTest : public testing::Test {
 protected:
    OutputQueueTest() { queue_.Restart(); }

    OutputQueue queue_;
};

TEST_F(OutputQueueTest, KeepsTheBytesAndTheForceFlag) {
    queue_.Put(OutputQueue::Ticket(queue_), Item(7, true));
    const std::optional<OutputItem> item = queue_.Take();
    ASSERT_TRUE(item);
    EXPECT_THAT(item->report, ElementsAre(7));
    EXPECT_TRUE(item->force);
}

TEST_F(OutputQueueTest, QueuesInTheOrderOfTheTickets) {
    OutputQueue::Ticket first(queue_);
    OutputQueue::Ticket second(queue_);
    OutputQueue::Ticket third(queue_);
    queue_.Put(std::move(third), Item(3));
    queue_.Put(std::move(second), Item(2));
    queue_.Put(std::move(first), Item(1));
    EXPECT_THAT(TakeAll(queue_), ElementsAre(1, 2, 3));
}

TEST_F(OutputQueueTest, QueuesAtOnceWhatNothingEarlierIsMissingFor) {
    OutputQueue::Ticket first(queue_);
    OutputQueue::Ticket second(queue_);
    OutputQueue::Ticket third(queue_);
    OutputQueue::Ticket fourth(queue_);
    std::vector<int> taken;
    queue_.Put(std::move(fourth), Item(4));
    queue_.Put(std::move(second), Item(2));
    queue_.Put(std::move(first), Item(1));
    EXPECT_THAT(Take(queue_, 2), ElementsAre(1, 2));
    std::thread late([&] { queue_.Put(std::move(third), Item(3)); });
    EXPECT_THAT(Take(queue_, 2), ElementsAre(3, 4));
    queue_.Stop();
    EXPECT_FALSE(queue_.Take());
    late.join();
}

TEST_F(OutputQueueTest, ATicketWhoseOwnerBreaksOffHoldsNobodyUp) {
    std::optional<OutputQueue::Ticket> first(std::in_place, queue_);
    OutputQueue::Ticket second(queue_);
    queue_.Put(std::move(second), Item(2));
    first.reset();
    EXPECT_THAT(Take(queue_, 1), ElementsAre(2));
}

TEST_F(OutputQueueTest, RestartForgetsWhatIsQueuedAndWhatComesLate) {
    OutputQueue::Ticket early(queue_);
    OutputQueue::Ticket waiting(queue_);
    queue_.Put(OutputQueue::Ticket(queue_), Item(9));
    queue_.Put(std::move(waiting), Item(8));
    queue_.Restart();
    queue_.Put(OutputQueue::Ticket(queue_), Item(1));
    queue_.Put(std::move(early), Item(7));
    EXPECT_THAT(TakeAll(queue_), ElementsAre(1));
}

TEST_F(OutputQueueTest, RestartIsHeldUpByNoEarlierTicket) {
    const OutputQueue::Ticket never(queue_);
    queue_.Restart();
    queue_.Put(OutputQueue::Ticket(queue_), Item(1));
    EXPECT_THAT(Take(queue_, 1), ElementsAre(1));
}

TEST_F(OutputQueueTest, WakesAWriterThatWaits) {
    std::thread writer([&] { EXPECT_TRUE(queue_.Take()); });
    queue_.Put(OutputQueue::Ticket(queue_), Item(1));
    writer.join();
}

TEST_F(OutputQueueTest, StoppedGivesNothingMoreToTheWriter) {
    queue_.Put(OutputQueue::Ticket(queue_), Item(1));
    queue_.Stop();
    EXPECT_FALSE(queue_.Take());
    queue_.Restart();
    std::thread writer([&] { EXPECT_FALSE(queue_.Take()); });
    queue_.Stop();
    writer.join();
}

// All callers return after the write in flight, however many or slow they are, and their reports
// are queued by then.
TEST_F(OutputQueueTest, CallersWaitForTheWriteInFlightAndAreLetGoTogether) {
    queue_.Put(OutputQueue::Ticket(queue_), Item(0));
    ASSERT_TRUE(queue_.Take());
    std::atomic<int> returned{0};
    std::vector<std::thread> callers;
    for (BYTE caller = 1; caller <= 4; ++caller) {
        callers.emplace_back([&, caller] {
            queue_.Put(OutputQueue::Ticket(queue_), Item(caller));
            ++returned;
        });
    }
    // Gives callers that do not wait the time to return.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(returned, 0);
    // The write ends: the writer has the next report and waits for no caller.
    ASSERT_TRUE(queue_.Take());
    for (std::thread& caller : callers) caller.join();
    EXPECT_EQ(returned, 4);
    EXPECT_EQ(Take(queue_, 3).size(), 3U);
}

TEST_F(OutputQueueTest, LetsCallersGoWhenItIsStopped) {
    queue_.Put(OutputQueue::Ticket(queue_), Item(0));
    ASSERT_TRUE(queue_.Take());
    std::thread caller([&] { queue_.Put(OutputQueue::Ticket(queue_), Item(1)); });
    queue_.Stop();
    EXPECT_FALSE(queue_.Take());
    caller.join();
}

// A busy writer empties its queue before it takes what arrived meanwhile.
TEST_F(OutputQueueTest, CallersWaitUntilEverythingQueuedBeforeIsWritten) {
    queue_.Put(OutputQueue::Ticket(queue_), Item(0));
    queue_.Put(OutputQueue::Ticket(queue_), Item(1));
    ASSERT_TRUE(queue_.Take());
    std::atomic<bool> returned{false};
    std::thread caller([&] {
        queue_.Put(OutputQueue::Ticket(queue_), Item(2));
        returned = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_THAT(Take(queue_, 1), ElementsAre(1));
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(returned);
    EXPECT_THAT(Take(queue_, 1), ElementsAre(2));
    caller.join();
}

TEST_F(OutputQueueTest, LetsCallersGoWhenItIsStoppedWithReportsLeft) {
    queue_.Put(OutputQueue::Ticket(queue_), Item(0));
    queue_.Put(OutputQueue::Ticket(queue_), Item(1));
    ASSERT_TRUE(queue_.Take());
    std::thread caller([&] { queue_.Put(OutputQueue::Ticket(queue_), Item(2)); });
    queue_.Stop();
    EXPECT_FALSE(queue_.Take());
    caller.join();
}

TEST_F(OutputQueueTest, ATicketGivenUpWaitsForNoWrite) {
    queue_.Put(OutputQueue::Ticket(queue_), Item(0));
    ASSERT_TRUE(queue_.Take());
    { const OutputQueue::Ticket unused(queue_); }
    queue_.Stop();
    EXPECT_FALSE(queue_.Take());
}

TEST_F(OutputQueueTest, ATicketGivenUpEndsNoWrite) {
    queue_.Put(OutputQueue::Ticket(queue_), Item(0));
    ASSERT_TRUE(queue_.Take());
    { const OutputQueue::Ticket unused(queue_); }
    std::atomic<bool> returned{false};
    std::thread caller([&] {
        queue_.Put(OutputQueue::Ticket(queue_), Item(1));
        returned = true;
    });
    // Gives a caller that does not wait the time to return.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(returned);
    EXPECT_THAT(Take(queue_, 1), ElementsAre(1));
    caller.join();
}

TEST_F(OutputQueueTest, LosesNothingOfManyThreadsAndKeepsTheOrderOfEach) {
    constexpr int kThreads = 4;
    constexpr int kReports = 60;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([this, thread] {
            for (int i = 0; i < kReports; ++i) {
                queue_.Put(OutputQueue::Ticket(queue_), Item(static_cast<BYTE>(i * 4 + thread)));
            }
        });
    }
    std::vector<std::vector<int>> byThread(kThreads);
    for (const int byte : Take(queue_, kThreads * kReports)) byThread[byte % 4].push_back(byte / 4);
    queue_.Stop();
    EXPECT_FALSE(queue_.Take());
    for (std::thread& thread : threads) thread.join();
    std::vector<int> all(kReports);
    for (int i = 0; i < kReports; ++i) all[i] = i;
    EXPECT_THAT(byThread, testing::Each(all));
}

TEST_F(OutputQueueTest, ANewOneNeedsNoRestart) {
    OutputQueue queue;
    queue.Put(OutputQueue::Ticket(queue), Item(1));
    EXPECT_THAT(TakeAll(queue), ElementsAre(1));
}

TEST_F(OutputQueueTest, RestartForgetsWhatTheWriterHasNotTaken) {
    queue_.Put(OutputQueue::Ticket(queue_), Item(9));
    queue_.Restart();
    EXPECT_THAT(TakeAll(queue_), ElementsAre());
}

TEST_F(OutputQueueTest, RestartForgetsWhatWaitedForEarlierTickets) {
    const OutputQueue::Ticket never(queue_);
    queue_.Put(OutputQueue::Ticket(queue_), Item(9));
    queue_.Restart();
    OutputQueue::Ticket first(queue_);
    queue_.Put(OutputQueue::Ticket(queue_), Item(2));
    queue_.Put(std::move(first), Item(1));
    EXPECT_THAT(Take(queue_, 2), ElementsAre(1, 2));
}

TEST_F(OutputQueueTest, ATicketMovedFromGivesNothingUp) {
    std::optional<OutputQueue::Ticket> first(std::in_place, queue_);
    OutputQueue::Ticket moved(std::move(*first));
    first.reset();
    queue_.Put(std::move(moved), Item(1));
    EXPECT_THAT(TakeAll(queue_), ElementsAre(1));
}

}  // namespace
