// The handles of a host process after many sessions, and after the library was unloaded.
#include "testing/kit/windows/OpenHandles.h"

#include "testing/acceptance/DetachableTouchpad.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"

namespace acceptance {
namespace {

// The open handles after a warm-up, which opens those that stay, and after some more rounds.
struct Growth {
    std::map<std::wstring, int> before;
    std::map<std::wstring, int> after;

    template <typename Round>
    static Growth Of(int rounds, Round round) {
        constexpr int kWarmUp = 3;
        Growth growth;
        for (int i = 0; i < kWarmUp; ++i) round();
        growth.before = OpenHandles();
        for (int i = 0; i < rounds; ++i) round();
        growth.after = OpenHandles();
        return growth;
    }
    int In(const wchar_t* kind) { return after[kind] - before[kind]; }
};

class OpenHandlesTest : public TouchpadAcceptanceTest {};

// A closed session keeps its two events open, as a write that was given up may still signal them. A
// MinGW mutex opens an event when two threads first compete for it.
TEST_F(OpenHandlesTest, ManySessionsLeaveNothingOpenButTheirEvents) {
    constexpr int kSessions = 30;
    constexpr int kMutexes = 20;
    Plug(DetachableTouchpad());
    // The fixture's start would keep the logger running, and writing, during the count.
    agent_.UnInitLogger();
    Growth growth = Growth::Of(kSessions, [this] {
        agent_.InitLogger(log_.Path().c_str());
        ASSERT_NO_FATAL_FAILURE(Open());
        LightAll();
        EXPECT_EQ(agent_.IsVelaPresent(), 1);
        EXPECT_EQ(agent_.Activate(VELA_DEACTIVATED), 1);
        EXPECT_EQ(agent_.UnInit(), 1);
        agent_.UnInitLogger();
    });
    EXPECT_EQ(growth.In(L"File"), 0);
    EXPECT_EQ(growth.In(L"Mutant"), 0);
    EXPECT_EQ(growth.In(L"Thread"), 0);
    EXPECT_EQ(growth.In(L"Semaphore"), 0);
    EXPECT_GE(growth.In(L"Event"), 2 * kSessions);
    EXPECT_LE(growth.In(L"Event"), 2 * kSessions + kMutexes);
}

TEST_F(OpenHandlesTest, LoadedAndUnloadedTenTimesItKeepsNoFileAndNoMutex) {
    constexpr int kRounds = 10;
    const std::filesystem::path file = log_.Path() / "Unloaded.dll";
    std::filesystem::copy_file(ProgramFolder() / "VelaAgent.dll", file);
    Plug();
    Growth growth = Growth::Of(kRounds, [&] {
        {
            AgentDll agent(file);
            agent.InitLogger(log_.Path().c_str());
            ASSERT_EQ(agent.Init(), VELA_INIT_OPEN);
            EXPECT_EQ(agent.EnableFeature(1), 1);
            EXPECT_EQ(agent.Activate(VELA_ACTIVE), 1);
            EXPECT_EQ(agent.UpdateVelaState(), 1);
            EXPECT_EQ(agent.UnInit(), 1);
            agent.UnInitLogger();
        }
        EXPECT_TRUE(FreeLibrary(GetModuleHandleW(file.c_str())));
        EXPECT_EQ(GetModuleHandleW(file.c_str()), nullptr);
    });
    EXPECT_EQ(growth.In(L"File"), 0);
    EXPECT_EQ(growth.In(L"Mutant"), 0);
    // MinGW's threads library inside the DLL opens a handle for each thread that calls it, this one
    // included, and does not close it when it is unloaded.
    EXPECT_LE(growth.In(L"Thread"), kRounds);
    // The logger is never destroyed, and its condition variable has two semaphores.
    EXPECT_LE(growth.In(L"Semaphore"), 2 * kRounds);
}

}  // namespace
}  // namespace acceptance
