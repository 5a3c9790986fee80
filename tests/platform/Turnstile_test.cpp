// The order in which threads are let in.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "platform/Turnstile.h"
#include "tests/platform/KeepsThreadsApart.h"

namespace {

using testing::ElementsAre;
using vela::Turnstile;

TEST(TurnstileTest, LetsOneThreadInAtATime) {
    Turnstile turnstile;
    EXPECT_TRUE(platform_test::KeepsThreadsApart([&] {
        auto turn = std::make_unique<Turnstile::Turn>(turnstile);
        turn->Await();
        return turn;
    }));
}

// Each thread draws before the next one is started; the first one goes in last of all, as it can.
TEST(TurnstileTest, LetsThreadsInAsTheyDrewHoweverLateTheFirstOneComes) {
    Turnstile turnstile;
    std::vector<int> order;
    std::vector<std::thread> threads;
    std::optional<Turnstile::Turn> first(std::in_place, turnstile);
    for (int i = 1; i <= 5; ++i) {
        std::atomic<bool> drawn{false};
        threads.emplace_back([&turnstile, &order, &drawn, i] {
            const Turnstile::Turn turn(turnstile);
            drawn = true;
            turn.Await();
            order.push_back(i);
        });
        while (!drawn) std::this_thread::yield();
    }
    first->Await();
    EXPECT_THAT(order, ElementsAre());
    order.push_back(0);
    first.reset();
    for (std::thread& thread : threads) thread.join();
    EXPECT_THAT(order, ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST(TurnstileTest, ATurnThatIsNotUsedHoldsNobodyUp) {
    Turnstile turnstile;
    { const Turnstile::Turn unused(turnstile); }
    const Turnstile::Turn turn(turnstile);
    turn.Await();
}

TEST(TurnstileTest, ATurnThatIsNotUsedIsNotOverBeforeTheEarlierOnes) {
    Turnstile turnstile;
    std::optional<Turnstile::Turn> first(std::in_place, turnstile);
    std::atomic<bool> drawn{false};
    std::atomic<bool> over{false};
    std::thread unused([&] {
        {
            const Turnstile::Turn turn(turnstile);
            drawn = true;
        }
        over = true;
    });
    while (!drawn) std::this_thread::yield();
    // Long enough for one that does not wait.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(over);
    first.reset();
    unused.join();
}

}  // namespace
