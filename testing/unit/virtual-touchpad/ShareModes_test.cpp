// Wine's CreateFile succeeds whatever the driver returns, so a refused open only fails at the first
// use of its handle. On Windows CreateFile fails.
#include <gtest/gtest.h>

#include "testing/unit/virtual-touchpad/HostFile.h"
#include "testing/unit/virtual-touchpad/PluggedTouchpad.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"

namespace virtual_touchpad {
namespace {

using namespace virtual_touchpad::events;

DWORD OpenError(const std::wstring& path, DWORD access, DWORD share) {
    HostFile file(path, access, share);
    return file.IsOpen() ? file.AttributesError() : GetLastError();
}

TEST(ShareModes, AnExclusiveOpenBlocksReadAndWrite) {
    PluggedTouchpad touchpad;
    HostFile holder(touchpad.Path(), kReadWrite, kExclusive);
    ASSERT_EQ(holder.AttributesError(), ERROR_SUCCESS);
    EXPECT_EQ(OpenError(touchpad.Path(), kReadWrite, kShared), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(OpenError(touchpad.Path(), GENERIC_READ, kShared), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(OpenError(touchpad.Path(), GENERIC_WRITE, kShared), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(holder.AttributesError(), ERROR_SUCCESS);
}

TEST(ShareModes, ARefusedHandleNeitherReadsNorWrites) {
    PluggedTouchpad touchpad;
    HostFile holder(touchpad.Path(), kReadWrite, kExclusive);
    HostFile refused(touchpad.Path());
    const DWORD openError = GetLastError();
    DWORD size = 0;
    if (!refused.IsOpen()) {
        // CreateFile fails on Windows, and in a process in which WaitingCreateFile_test has run.
        EXPECT_EQ(openError, ERROR_SHARING_VIOLATION);
    } else {
        EXPECT_EQ(refused.Read(3)->Result(&size), ERROR_SHARING_VIOLATION);
        EXPECT_EQ(refused.WriteAndWait(Report(kOutputReportLength)), ERROR_SHARING_VIOLATION);
    }
    EXPECT_EQ(touchpad.Device().LastSequence(), 0u);
}

TEST(ShareModes, AnOpenWithoutAccessAlwaysSucceeds) {
    PluggedTouchpad touchpad;
    HostFile holder(touchpad.Path(), kReadWrite, kExclusive);
    EXPECT_EQ(OpenError(touchpad.Path(), 0, kShared), ERROR_SUCCESS);
    EXPECT_EQ(OpenError(touchpad.Path(), 0, kExclusive), ERROR_SUCCESS);
}

TEST(ShareModes, AnOpenWithoutAccessBlocksNobody) {
    PluggedTouchpad touchpad;
    HostFile scan(touchpad.Path(), 0, kShared);
    EXPECT_EQ(scan.AttributesError(), ERROR_SUCCESS);
    EXPECT_EQ(OpenError(touchpad.Path(), kReadWrite, kExclusive), ERROR_SUCCESS);
}

TEST(ShareModes, AnExclusiveOpenFailsWhileOthersHaveItOpen) {
    PluggedTouchpad touchpad;
    HostFile shared(touchpad.Path());
    ASSERT_EQ(shared.AttributesError(), ERROR_SUCCESS);
    EXPECT_EQ(OpenError(touchpad.Path(), kReadWrite, kExclusive), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(OpenError(touchpad.Path(), kReadWrite, kShared), ERROR_SUCCESS);
}

TEST(ShareModes, ClosingFreesIt) {
    PluggedTouchpad touchpad;
    HostFile holder(touchpad.Path(), kReadWrite, kExclusive);
    ASSERT_EQ(holder.AttributesError(), ERROR_SUCCESS);
    holder.Close();
    EXPECT_EQ(OpenError(touchpad.Path(), kReadWrite, kExclusive), ERROR_SUCCESS);
}

// Wine's raw input opens every device at its first input report.
TEST(ShareModes, AnInputReportBlocksNobody) {
    PluggedTouchpad touchpad;
    {
        HostFile host(touchpad.Path());
        auto read = host.Read(3);
        touchpad.Control().SendEvent(kSync);
        ASSERT_TRUE(read->WaitFor(kSoon));
    }
    EXPECT_EQ(OpenError(touchpad.Path(), kReadWrite, kExclusive), ERROR_SUCCESS);
    EXPECT_EQ(touchpad.Device().Opens(), 0u);
}

TEST(ShareModes, ADeviceMayRefuseEveryOpenAfterSomeMore) {
    PluggedTouchpad touchpad;
    touchpad.Device().LimitOpens(1);
    HostFile allowed(touchpad.Path(), 0);
    EXPECT_EQ(allowed.AttributesError(), ERROR_SUCCESS);
    EXPECT_EQ(OpenError(touchpad.Path(), 0, kShared), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(OpenError(touchpad.Path(), kReadWrite, kShared), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(allowed.AttributesError(), ERROR_SUCCESS);
    touchpad.Device().LimitOpens();
    EXPECT_EQ(OpenError(touchpad.Path(), kReadWrite, kShared), ERROR_SUCCESS);
}

TEST(ShareModes, OpensAreCounted) {
    PluggedTouchpad touchpad;
    EXPECT_EQ(touchpad.Device().Opens(), 0u);
    HostFile scan(touchpad.Path(), 0);
    HostFile one(touchpad.Path());
    HostFile two(touchpad.Path());
    EXPECT_TRUE(touchpad.Device().WaitForState(
        [](const VirtualHidState& state) {
            return state.readWriteOpens == 2 && state.otherOpens == 1;
        },
        kSoon));
    one.Close();
    EXPECT_TRUE(touchpad.Device().WaitForState(
        [](const VirtualHidState& state) { return state.readWriteOpens == 1; }, kSoon));
}

}  // namespace
}  // namespace virtual_touchpad
