#include "testing/simulator/hid/PreparsedData.h"

#include <atomic>
#include <set>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

std::shared_ptr<const Collection> SomeCollection() {
    return ParseReportDescriptor(
               Application().Value(Main::Input, 0x20, 8, 0xFF).EndCollection().Bytes())
        .at(0);
}

TEST(PreparsedData, IsFreedExactlyOnce) {
    const PHIDP_PREPARSED_DATA preparsed = AllocatePreparsedData(SomeCollection());
    ASSERT_NE(preparsed, nullptr);
    EXPECT_TRUE(FreePreparsedData(preparsed));
    EXPECT_FALSE(FreePreparsedData(preparsed));
}

TEST(PreparsedData, ThatWasNeverHandedOutIsNotFreed) {
    int local = 0;
    EXPECT_FALSE(FreePreparsedData(nullptr));
    EXPECT_FALSE(FreePreparsedData(reinterpret_cast<PHIDP_PREPARSED_DATA>(&local)));
}

TEST(PreparsedData, InUseIsCounted) {
    const std::size_t before = PreparsedDataInUse();
    const PHIDP_PREPARSED_DATA first = AllocatePreparsedData(SomeCollection());
    const PHIDP_PREPARSED_DATA second = AllocatePreparsedData(SomeCollection());
    EXPECT_EQ(PreparsedDataInUse(), before + 2);
    FreePreparsedData(first);
    FreePreparsedData(first);
    EXPECT_EQ(PreparsedDataInUse(), before + 1);
    FreePreparsedData(second);
    EXPECT_EQ(PreparsedDataInUse(), before);
}

TEST(PreparsedData, OfOneCollectionIsNewEachTime) {
    const auto collection = SomeCollection();
    const PHIDP_PREPARSED_DATA first = AllocatePreparsedData(collection);
    const PHIDP_PREPARSED_DATA second = AllocatePreparsedData(collection);
    EXPECT_NE(first, second);
    EXPECT_EQ(FindPreparsedData(first), collection);
    EXPECT_EQ(FindPreparsedData(second), collection);
    FreePreparsedData(first);
    FreePreparsedData(second);
}

TEST(PreparsedData, UsedAfterItsEndIsSeenThoughOthersWereAllocatedSince) {
    const PHIDP_PREPARSED_DATA freed = AllocatePreparsedData(SomeCollection());
    FreePreparsedData(freed);
    std::vector<PHIDP_PREPARSED_DATA> others;
    for (int i = 0; i < 100; ++i) others.push_back(AllocatePreparsedData(SomeCollection()));
    HIDP_CAPS caps{};
    EXPECT_EQ(HidP_GetCaps(freed, &caps), HIDP_STATUS_INVALID_PREPARSED_DATA);
    for (const PHIDP_PREPARSED_DATA other : others) FreePreparsedData(other);
}

TEST(PreparsedData, OutlivesTheCollectionsOtherOwners) {
    std::shared_ptr<const Collection> collection = SomeCollection();
    const std::weak_ptr<const Collection> observer = collection;
    const PHIDP_PREPARSED_DATA preparsed = AllocatePreparsedData(std::move(collection));
    collection.reset();
    HIDP_CAPS caps{};
    EXPECT_EQ(HidP_GetCaps(preparsed, &caps), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(caps.InputReportByteLength, 2);
    FreePreparsedData(preparsed);
    EXPECT_TRUE(observer.expired());
}

TEST(PreparsedData, IsSharedByThreads) {
    const std::size_t before = PreparsedDataInUse();
    const auto collection = SomeCollection();
    const PHIDP_PREPARSED_DATA shared = AllocatePreparsedData(collection);
    std::atomic<int> freedTwice{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 500; ++round) {
                const PHIDP_PREPARSED_DATA own = AllocatePreparsedData(collection);
                HIDP_CAPS caps{};
                HidP_GetCaps(own, &caps);
                HidP_GetCaps(shared, &caps);
                FreePreparsedData(own);
                if (FreePreparsedData(own)) ++freedTwice;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(freedTwice, 0);
    FreePreparsedData(shared);
    EXPECT_EQ(PreparsedDataInUse(), before);
}

}  // namespace
}  // namespace simulator::hid
