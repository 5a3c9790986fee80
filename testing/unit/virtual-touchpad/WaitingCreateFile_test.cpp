#include "testing/virtual-touchpad/control/WaitingCreateFile.h"

#include <gtest/gtest.h>

#include "testing/unit/virtual-touchpad/HostFile.h"
#include "testing/unit/virtual-touchpad/PluggedTouchpad.h"

namespace virtual_touchpad {
namespace {

// The replacement stays for later tests in this process; they see a refused open at CreateFile.
TEST(WaitingCreateFile, ARefusedOpenFailsAtCreateFile) {
    MakeCreateFileWait(GetModuleHandleW(nullptr));
    PluggedTouchpad touchpad;
    HostFile holder(touchpad.Path(), kReadWrite, kExclusive);
    ASSERT_TRUE(holder.IsOpen());
    SetLastError(ERROR_SUCCESS);
    HostFile refused(touchpad.Path());
    EXPECT_FALSE(refused.IsOpen());
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_TRUE(HostFile(touchpad.Path(), 0).IsOpen());
}

TEST(WaitingCreateFile, AModuleWithoutCreateFileIsRefused) {
    EXPECT_THROW(MakeCreateFileWait(GetModuleHandleW(L"ntdll.dll")), std::runtime_error);
}

}  // namespace
}  // namespace virtual_touchpad
