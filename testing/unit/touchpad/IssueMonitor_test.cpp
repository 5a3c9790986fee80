// The monitor of issued reports, which closing queries.
#include "touchpad/IssueMonitor.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

using vela::IssueMonitor;
using vela::IssueOrder;

const std::vector<BYTE> kDark{2, 0};
const std::vector<BYTE> kLit{2, 3};

class IssueMonitorTest : public testing::Test {
 protected:
    IssueMonitorTest() { monitor_.Restart(); }

    void Issue(const std::vector<BYTE>& report, bool accepted = true) {
        ASSERT_TRUE(monitor_.Enter(IssueOrder::BeforeStop));
        monitor_.Leave(report, accepted);
    }

    IssueMonitor monitor_;
};

TEST_F(IssueMonitorTest, SeesAnotherReportFromTheWatchOn) {
    Issue(kLit);
    monitor_.Watch(kDark);
    EXPECT_FALSE(monitor_.HasSeenAnother());
    Issue(kDark);
    EXPECT_FALSE(monitor_.HasSeenAnother());
    Issue(kLit);
    EXPECT_TRUE(monitor_.HasSeenAnother());
    Issue(kDark);
    EXPECT_TRUE(monitor_.HasSeenAnother());
}

TEST_F(IssueMonitorTest, SeesOneThatWasBeingIssuedWhenTheWatchBegan) {
    ASSERT_TRUE(monitor_.Enter(IssueOrder::BeforeStop));
    monitor_.Watch(kDark);
    monitor_.Leave(kLit, true);
    EXPECT_TRUE(monitor_.HasSeenAnother());
}

TEST_F(IssueMonitorTest, DoesNotCountWhatThePlatformRefused) {
    Issue(kDark);
    monitor_.Watch(kDark);
    Issue(kLit, false);
    EXPECT_FALSE(monitor_.HasSeenAnother());
    EXPECT_TRUE(monitor_.IsWatchedLast());
}

TEST_F(IssueMonitorTest, RemembersTheLastReport) {
    Issue(kDark);
    Issue(kLit);
    monitor_.Watch(kDark);
    EXPECT_FALSE(monitor_.IsWatchedLast());
    Issue(kDark);
    EXPECT_TRUE(monitor_.IsWatchedLast());
}

TEST_F(IssueMonitorTest, BeginsAnewWithEachWatch) {
    monitor_.Watch(kDark);
    Issue(kLit);
    ASSERT_TRUE(monitor_.HasSeenAnother());
    monitor_.Watch(kDark);
    EXPECT_FALSE(monitor_.HasSeenAnother());
}

TEST_F(IssueMonitorTest, ForgetsTheLastReportWithTheSession) {
    Issue(kDark);
    monitor_.Restart();
    monitor_.Watch(kDark);
    EXPECT_FALSE(monitor_.IsWatchedLast());
}

TEST_F(IssueMonitorTest, NotesTimeoutsFromTheWatchOn) {
    monitor_.NoteTimeout();
    monitor_.Watch(kDark);
    EXPECT_FALSE(monitor_.HasSeenTimeout());
    monitor_.NoteTimeout();
    EXPECT_TRUE(monitor_.HasSeenTimeout());
}

TEST_F(IssueMonitorTest, LetsOnlyTheLastReportInAfterTheStop) {
    monitor_.Stop();
    EXPECT_FALSE(monitor_.Enter(IssueOrder::BeforeStop));
    EXPECT_TRUE(monitor_.Enter(IssueOrder::Last));
    monitor_.Leave(kDark, true);
    monitor_.Restart();
    EXPECT_TRUE(monitor_.Enter(IssueOrder::BeforeStop));
    monitor_.Leave(kLit, true);
}

TEST_F(IssueMonitorTest, WaitsForAReportThatIsBeingIssued) {
    ASSERT_TRUE(monitor_.Enter(IssueOrder::BeforeStop));
    monitor_.Watch(kDark);
    monitor_.Stop();
    std::thread heartbeat([this] { monitor_.Leave(kLit, true); });
    monitor_.AwaitLeaving();
    EXPECT_TRUE(monitor_.HasSeenAnother());
    heartbeat.join();
}

TEST_F(IssueMonitorTest, OfANewSessionWatchesNothingYet) {
    monitor_.Watch(kDark);
    monitor_.Restart();
    Issue(kLit);
    EXPECT_FALSE(monitor_.HasSeenAnother());
}

TEST_F(IssueMonitorTest, BeforeTheFirstSessionLetsNothingInAndHasSeenNothing) {
    IssueMonitor monitor;
    EXPECT_FALSE(monitor.Enter(IssueOrder::BeforeStop));
    EXPECT_TRUE(monitor.Enter(IssueOrder::Last));
    EXPECT_FALSE(monitor.HasSeenAnother());
    EXPECT_FALSE(monitor.HasSeenTimeout());
    monitor.Leave(kLit, true);
    EXPECT_FALSE(monitor.HasSeenAnother());
}

}  // namespace
