// The handle of the library's own file.
#include "platform/ModuleHandle.h"

#include <gtest/gtest.h>

namespace {

TEST(ModuleHandleTest, IsNullUntilItIsSet) { EXPECT_EQ(vela::ModuleHandle(), nullptr); }

TEST(ModuleHandleTest, IsTheOneThatWasSetLast) {
    const auto first = reinterpret_cast<HMODULE>(0x10000);
    const auto second = reinterpret_cast<HMODULE>(0x20000);
    vela::SetModuleHandle(first);
    EXPECT_EQ(vela::ModuleHandle(), first);
    vela::SetModuleHandle(second);
    EXPECT_EQ(vela::ModuleHandle(), second);
    vela::SetModuleHandle(nullptr);
    EXPECT_EQ(vela::ModuleHandle(), nullptr);
}

}  // namespace
