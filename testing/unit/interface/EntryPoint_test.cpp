// The library's entry point, which the platform calls under the loader's lock.
#include "log/ILog.h"
#include "platform/ModuleHandle.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/kit/native/LibraryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using simulator::Machine;
using testing::IsEmpty;

class EntryPointTest : public testing::TestWithParam<DWORD> {
 protected:
    EntryPointTest() {
        Machine::Get().Reset();
        DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr);
    }
    ~EntryPointTest() override { DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr); }

    const HINSTANCE module_ = kit::LibraryFolder::Module();
};

TEST_P(EntryPointTest, AgreesToEveryReasonAndDoesNothingElse) {
    kit::AgentLog log;
    EXPECT_EQ(DllMain(module_, GetParam(), nullptr), TRUE);
    // A process detach with a non-null `reserved` is final: ProcessExit_test.cpp tests it.
    const bool endsProcess = GetParam() == DLL_PROCESS_DETACH;
    EXPECT_EQ(DllMain(module_, GetParam(), endsProcess ? nullptr : &log), TRUE);
    EXPECT_THAT(Machine::Get().CallTexts(), IsEmpty());
    EXPECT_THAT(log.Texts(), IsEmpty());
}

TEST_P(EntryPointTest, KeepsTheModuleHandleOfTheAttachOnly) {
    DllMain(module_, GetParam(), nullptr);
    EXPECT_EQ(vela::ModuleHandle(), GetParam() == DLL_PROCESS_ATTACH ? module_ : nullptr);
    DllMain(module_, DLL_PROCESS_ATTACH, nullptr);
    DllMain(nullptr, GetParam() == DLL_PROCESS_ATTACH ? DLL_THREAD_ATTACH : GetParam(), nullptr);
    EXPECT_EQ(vela::ModuleHandle(), module_);
}

INSTANTIATE_TEST_SUITE_P(Reasons, EntryPointTest,
                         testing::Values(DLL_PROCESS_DETACH, DLL_PROCESS_ATTACH, DLL_THREAD_ATTACH,
                                         DLL_THREAD_DETACH, 4U, 0xFFFFFFFFU));

// A process that loads the library with its program passes a non-null `reserved` at the attach.
TEST_P(EntryPointTest, LeavesTheLogRunning) {
    kit::AgentLog log;
    const bool endsProcess = GetParam() == DLL_PROCESS_DETACH;
    DllMain(module_, GetParam(), endsProcess ? nullptr : &log);
    vela::GetLogger()->Info("line", "f");
    EXPECT_THAT(log.Texts(), testing::ElementsAre("INFO f: line"));
}

}  // namespace
