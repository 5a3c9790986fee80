// velactl watch --recover: the touchpad leaves and comes back.
#include <regex>

#include "testing/kit/windows/FirstArrival.h"
#include "testing/unit/velactl/VelactlTest.h"

namespace velactl_test {
namespace {

class WatchRecoverTest : public VelactlTest {
 protected:
    static TouchpadLayout Detachable() {
        TouchpadLayout layout;
        layout.productString = L"Vela Detachable Touchpad";
        return layout;
    }
    // Returns the events of these names, in order, each as its line without the time.
    static std::vector<std::string> Lines(const Velactl& program, const std::string& names) {
        const std::string output = program.Output();
        const std::regex line(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}  ((?:)" + names + ") .*)\n");
        std::vector<std::string> lines;
        for (auto found = std::sregex_iterator(output.begin(), output.end(), line);
             found != std::sregex_iterator(); ++found) {
            lines.push_back((*found)[1]);
        }
        return lines;
    }
};

constexpr char kFound[] = "found   the touchpad is open";
constexpr char kLost[] = "lost    the touchpad is gone";

TEST_F(WatchRecoverTest, OpensTheTouchpadWheneverItComesBack) {
    const Velactl program(L"watch --recover");
    ASSERT_TRUE(WaitForNotifiedWindow(L"VelaAgentWatch"));
    ASSERT_TRUE(PlugUntilNoticed([&] { Plug(); }, [&] { Unplug(); },
                                 [&] { return AllFourLit(Touchpad().CurrentLights()); }));
    std::vector<std::string> expected;
    for (int cycle = 0; cycle < 2; ++cycle) {
        Unplug();
        expected.insert(expected.end(), {kFound, kLost});
        WaitUntil([&] { return Lines(program, "found|lost|held") == expected; });
        ASSERT_EQ(Lines(program, "found|lost|held"), expected);
        Plug();
        ASSERT_TRUE(WaitForLights(AllFourLit));
    }
    Touchpad().Press(kCameraButton);
    ASSERT_TRUE(program.WaitForOutput("camera"));
    program.Interrupt();
    EXPECT_EQ(program.Wait(), 0U);
    EXPECT_EQ(program.Errors(), "");
    expected.insert(expected.end(), {kFound, "press   camera, light to be on"});
    EXPECT_EQ(Lines(program, "found|lost|held|press"), expected);
    EXPECT_TRUE(WaitForLights(AllDark));
}

TEST_F(WatchRecoverTest, PrintsJsonAndMayBeInterruptedWithoutATouchpad) {
    Plug(Detachable());
    const Velactl program(L"watch --recover --json --host-sets-lights");
    ASSERT_TRUE(WaitForLights(AllFourLit));
    Unplug();
    ASSERT_TRUE(program.WaitForOutput("lost"));
    program.Interrupt();
    EXPECT_EQ(program.Wait(), 0U);
    std::vector<std::string> events;
    for (const Json& event : program.Results()) {
        EXPECT_TRUE(event.contains("time"));
        events.push_back(event.at("event"));
    }
    EXPECT_THAT(events, testing::UnorderedElementsAre("status", "found", "lost"));
    EXPECT_EQ(events.back(), "lost");
}

TEST_F(WatchRecoverTest, SaysThatAnotherProcessHasTheTouchpad) {
    Plug();
    SetEnvironmentVariableW(L"VELA_STAND_IN_INIT", L"3");
    const Velactl program(L"watch --recover --dll \"" +
                          (ProgramFolder() / "velactl_stand_in.dll").wstring() + L"\"");
    ASSERT_TRUE(program.WaitForOutput("\n"));
    program.Interrupt();
    EXPECT_EQ(program.Wait(), 0U);
    EXPECT_EQ(Lines(program, "found|lost|held"),
              std::vector<std::string>{"held    by another process"});
}

TEST_F(WatchRecoverTest, MayEndByItself) {
    const Finished run(L"watch --recover --seconds 0.1");
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_EQ(run.output, "");
}

}  // namespace
}  // namespace velactl_test
