// The command line of velactl, and its output on a machine without a touchpad.
#include "testing/unit/velactl/VelactlTest.h"

#include "VelaAgentVersion.h"

namespace velactl_test {
namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr const wchar_t* kCommands[] = {
    L"devices",    L"caps",      L"status", L"watch",  L"light", L"visible", L"enable", L"breathe",
    L"brightness", L"clickmode", L"haptic", L"doctor", L"log",   L"record",  L"report"};

MATCHER(IsOneLineFromVelactl, "") {
    return arg.rfind("velactl: ", 0) == 0 && arg.find('\n') == arg.size() - 1;
}

TEST(CommandLineTest, PrintsTheVersion) {
    const Finished run(L"--version");
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_EQ(run.output, "velactl " VELA_AGENT_VERSION "\n");
}

TEST(CommandLineTest, HelpNamesEveryCommandAndTheExitCodes) {
    const Finished run(L"--help");
    EXPECT_EQ(run.exitCode, 0U);
    for (const std::wstring command : kCommands) {
        EXPECT_THAT(run.output, HasSubstr("\n  " + std::string(command.begin(), command.end())));
    }
    EXPECT_THAT(run.output, HasSubstr("4 held by another process"));
}

class CommandHelpTest : public testing::TestWithParam<const wchar_t*> {};

INSTANTIATE_TEST_SUITE_P(, CommandHelpTest, testing::ValuesIn(kCommands));

TEST_P(CommandHelpTest, ShowsTheUsage) {
    const std::wstring command = GetParam();
    const Finished run(command + L" --help");
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_THAT(run.output,
                HasSubstr("velactl " + std::string(command.begin(), command.end()) + " ["));
    EXPECT_EQ(run.errors, "");
}

class WrongUsageTest : public testing::TestWithParam<const wchar_t*> {};

INSTANTIATE_TEST_SUITE_P(, WrongUsageTest,
                         testing::Values(L"", L"frobnicate", L"status --frobnicate", L"light",
                                         L"light camera", L"light door on", L"visible chat maybe",
                                         L"brightness 256", L"breathe", L"enable chat on --hold -1",
                                         L"clickmode on", L"clickmode on 65536", L"haptic -1",
                                         L"watch --seconds 0", L"log", L"record", L"report"));

TEST_P(WrongUsageTest, IsReportedInOneLine) {
    const Finished run(GetParam());
    EXPECT_EQ(run.exitCode, 2U);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, IsOneLineFromVelactl());
}

TEST(CommandLineTest, NamesWhatIsWrong) {
    EXPECT_THAT(Finished(L"light door on").errors,
                HasSubstr("BUTTON: \"door\" is none of camera, chat, microphone, share-screen"));
    EXPECT_THAT(Finished(L"frobnicate").errors, HasSubstr("not expected: frobnicate"));
}

// --- without the library -------------------------------------------------------------------------

TEST(NoLibraryTest, AMissingFileIsReportedWithItsPathAndTheSystemsError) {
    const Finished run(L"status --dll C:\\nowhere\\VelaAgent.dll");
    EXPECT_EQ(run.exitCode, 5U);
    EXPECT_THAT(run.errors, AllOf(IsOneLineFromVelactl(), HasSubstr("C:\\nowhere\\VelaAgent.dll"),
                                  HasSubstr("(error 126)")));
}

TEST(NoLibraryTest, AnotherLibraryIsReportedWithTheMissingExport) {
    const Finished run(L"status --dll C:\\windows\\system32\\hid.dll");
    EXPECT_EQ(run.exitCode, 5U);
    EXPECT_THAT(run.errors, AllOf(IsOneLineFromVelactl(), HasSubstr("no Activate in ")));
}

// --- without the log's folder --------------------------------------------------------------------

TEST(NoLogFolderTest, IsReportedWithTheFoldersName) {
    const Finished run(L"status --log C:\\nowhere");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(run.errors,
                AllOf(IsOneLineFromVelactl(), HasSubstr("no log directory C:\\nowhere")));
}

// --- without a touchpad, and with one that another process has open ------------------------------

constexpr const wchar_t* kSessionCommands[] = {
    L"watch",      L"light camera on", L"visible chat off", L"enable microphone on",
    L"breathe on", L"brightness 9",    L"clickmode",        L"clickmode off"};

class NoTouchpadTest : public VelactlTest, public testing::WithParamInterface<const wchar_t*> {};

INSTANTIATE_TEST_SUITE_P(Sessions, NoTouchpadTest, testing::ValuesIn(kSessionCommands));
INSTANTIATE_TEST_SUITE_P(Others, NoTouchpadTest,
                         testing::Values(L"caps", L"caps --haptic", L"haptic", L"haptic 9"));

TEST_P(NoTouchpadTest, IsReportedInOneLine) {
    const Finished run(GetParam());
    EXPECT_EQ(run.exitCode, 3U);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, AllOf(IsOneLineFromVelactl(), HasSubstr("touchpad")));
}

class HeldTouchpadTest : public testing::TestWithParam<const wchar_t*> {
 protected:
    HeldTouchpadTest() { SetEnvironmentVariableW(L"VELA_STAND_IN_INIT", L"3"); }
    ~HeldTouchpadTest() override { SetEnvironmentVariableW(L"VELA_STAND_IN_INIT", nullptr); }

    static Finished Run(const std::wstring& command) {
        return Finished(command + L" --dll \"" +
                        (ProgramFolder() / "velactl_stand_in.dll").wstring() + L"\"");
    }
};

INSTANTIATE_TEST_SUITE_P(, HeldTouchpadTest, testing::ValuesIn(kSessionCommands));

TEST_P(HeldTouchpadTest, IsReportedInOneLine) {
    const Finished run = Run(GetParam());
    EXPECT_EQ(run.exitCode, 4U);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "velactl: the touchpad is held by another process\n");
}

using HeldStatusTest = HeldTouchpadTest;

INSTANTIATE_TEST_SUITE_P(, HeldStatusTest, testing::Values(L"status --json"));

TEST_P(HeldStatusTest, IsPrinted) {
    const Finished run = Run(GetParam());
    EXPECT_EQ(run.exitCode, 0U);
    ASSERT_EQ(run.results.size(), 1U);
    EXPECT_EQ(run.results[0]["touchpad"], "held by another process");
    EXPECT_EQ(run.results[0]["hapticTouchpad"], "cannot be opened");
}

}  // namespace
}  // namespace velactl_test
