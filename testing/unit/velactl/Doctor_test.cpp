// The commands doctor and log of velactl.
#include <fstream>

#include "testing/kit/LogFolder.h"
#include "testing/unit/velactl/VelactlTest.h"

namespace velactl_test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class DoctorTest : public VelactlTest {
 protected:
    // Returns texts such as "library ok", in the order of the checks.
    static std::vector<std::string> Outcomes(const std::vector<Json>& results) {
        std::vector<std::string> outcomes;
        for (const Json& result : results) {
            outcomes.push_back(result["check"].get<std::string>() + " " +
                               result["result"].get<std::string>());
        }
        return outcomes;
    }
    // Returns a copy of the library with this "Vela.ini" beside it.
    std::wstring DllBeside(const std::string& vendorFile) {
        const auto dll = folder_.Path() / "VelaAgent.dll";
        std::filesystem::copy_file(ProgramFolder() / "VelaAgent.dll", dll);
        std::ofstream(folder_.Path() / "Vela.ini") << vendorFile;
        return L" --dll \"" + dll.wstring() + L"\"";
    }

    const kit::LogFolder folder_;
};

TEST_F(DoctorTest, FindsAWorkingTouchpadWell) {
    Plug();
    const Velactl program(L"doctor --json --log \"" + folder_.Path().wstring() + L"\"");
    ASSERT_TRUE(Touchpad().Device().WaitForOutput(virtual_touchpad::IsStateRequest, kPatience));
    Touchpad().SendFirmwareState(0x40);
    EXPECT_EQ(program.Wait(), 0U);
    EXPECT_THAT(Outcomes(program.Results()),
                ElementsAre("last session skipped", "library ok", "vendors ok", "touchpad ok",
                            "buttons and lights ok", "other sessions ok", "opening ok",
                            "firmware ok", "log folder ok"));
}

TEST_F(DoctorTest, WithoutATouchpadNamesTheNextStep) {
    const Finished run(L"doctor");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(run.output, HasSubstr("ok       library: "));
    EXPECT_THAT(run.output, HasSubstr("\nfailed   touchpad: none of "));
    EXPECT_THAT(run.output, HasSubstr("\n         next: attach it"));
    EXPECT_THAT(run.output, HasSubstr("\nskipped  opening: no touchpad to open\n"));
}

TEST_F(DoctorTest, NamesTheVendorThatIsNotLookedFor) {
    TouchpadLayout layout;
    layout.vendorId = 0x1A2B;
    Plug(layout);
    const Finished run(L"doctor");
    EXPECT_THAT(run.output,
                HasSubstr("\nfailed   touchpad: vendor 0x1a2b, product 0x1234: a vendor "
                          "that is not looked for\n"));
    EXPECT_THAT(run.output, HasSubstr("add a section [1a2b] to \"Vela.ini\""));
}

TEST_F(DoctorTest, NamesTheLightsThatAreMissing) {
    TouchpadLayout layout;
    layout.missingLightUsages = {0x21, 0x24};
    Plug(layout);
    EXPECT_THAT(Finished(L"doctor").output,
                HasSubstr("\nfailed   buttons and lights: its reports lack camera light for off "
                          "(output 0x0021), chat light (output 0x0024)\n"));
}

TEST_F(DoctorTest, ReportsASilentFirmware) {
    Plug();
    const Finished run(L"doctor --json");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(Outcomes(run.results), Contains("firmware failed"));
}

TEST_F(DoctorTest, ReportsAnotherSession) {
    const HANDLE mark = CreateMutexW(nullptr, FALSE, L"Global\\VelaDeviceMutex");
    const Finished run(L"doctor --json");
    CloseHandle(mark);
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(Outcomes(run.results), Contains("other sessions failed"));
}

// A stand-in library reports the touchpad as held, and its version is not velactl's.
TEST_F(DoctorTest, ReportsATouchpadThatIsHeld) {
    Plug();
    SetEnvironmentVariableW(L"VELA_STAND_IN_INIT", L"3");
    const auto standIn = ProgramFolder() / "velactl_stand_in.dll";
    const Finished run(L"doctor --json --dll \"" + standIn.wstring() + L"\"");
    SetEnvironmentVariableW(L"VELA_STAND_IN_INIT", nullptr);
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(Outcomes(run.results),
                ElementsAre("last session skipped", "library failed", "vendors ok", "touchpad ok",
                            "buttons and lights ok", "other sessions ok", "opening failed",
                            "firmware skipped", "log folder skipped"));
    EXPECT_EQ(run.results[6]["finding"], "the touchpad is held by another process");
}

TEST_F(DoctorTest, ReportsAMissingLibrary) {
    const Finished run(L"doctor --json --dll C:\\nowhere\\VelaAgent.dll");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(Outcomes(run.results),
                ElementsAre("last session skipped", "library failed", "vendors skipped",
                            "touchpad skipped", "buttons and lights skipped", "other sessions ok",
                            "opening skipped", "firmware skipped", "log folder skipped"));
}

TEST_F(DoctorTest, ReportsAMissingLogFolder) {
    const Finished run(L"doctor --json --log C:\\nowhere");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(Outcomes(run.results), testing::IsSupersetOf({"library ok", "log folder failed"}));
    EXPECT_EQ(run.results.back()["finding"], "no folder C:\\nowhere");
}

struct LastSession {
    const char* name;
    const char* log;
    const char* outcome;
};

class DoctorLastSessionTest : public DoctorTest, public testing::WithParamInterface<LastSession> {};

INSTANTIATE_TEST_SUITE_P(
    , DoctorLastSessionTest,
    testing::Values(LastSession{"WithoutErrors", "[t] {INFO @ Enable} Enable HID (1)\r\n",
                                "last session ok"},
                    LastSession{"WithAnError",
                                "[t] {INFO @ Initialize} = CTandrelHID initialize start =\r\n"
                                "[t] {ERROR @ Initialize} no such luck\r\n"
                                "[t] {INFO @ Uninitialize} = Uninitialize starts. =\r\n",
                                "last session failed"},
                    LastSession{"AfterOneWithAnError",
                                "[t] {ERROR @ Initialize} no such luck\r\n"
                                "[t] {INFO @ Initialize} = CTandrelHID initialize start =\r\n",
                                "last session ok"}),
    [](const auto& test) { return test.param.name; });

TEST_P(DoctorLastSessionTest, IsLookedUpInItsLog) {
    std::ofstream(folder_.File(), std::ios::binary) << GetParam().log;
    const Finished run(L"doctor --json --log \"" + folder_.Path().wstring() + L"\"");
    EXPECT_THAT(Outcomes(run.results), Contains(GetParam().outcome));
    if (std::string(GetParam().outcome) == "last session failed") {
        EXPECT_EQ(run.results[0]["finding"], "{ERROR @ Initialize} no such luck");
    }
}

struct VendorFile {
    const char* name;
    const char* text;
    const char* outcome;
    const char* finding;
};

class DoctorVendorFileTest : public DoctorTest, public testing::WithParamInterface<VendorFile> {};

INSTANTIATE_TEST_SUITE_P(
    , DoctorVendorFileTest,
    testing::Values(VendorFile{"TwoVendors", "[1A2B]\n[0x2F00]\n", "vendors ok",
                               "\"Vela.ini\" looks for vendor 0x1a2b, 0x2f00"},
                    VendorFile{"ANameThatIsNoVendor", "[1A2B]\n[zz]\n", "vendors failed", "zz"},
                    VendorFile{"NoSections", "; 1A2B\n", "vendors failed", "selects nothing"}),
    [](const auto& test) { return test.param.name; });

TEST_P(DoctorVendorFileTest, IsReadAsTheAgentReadsIt) {
    const Finished run(L"doctor --json" + DllBeside(GetParam().text));
    ASSERT_EQ(run.results.size(), 9U);
    EXPECT_THAT(Outcomes(run.results), Contains(GetParam().outcome));
    EXPECT_THAT(run.results[2]["finding"].get<std::string>(), HasSubstr(GetParam().finding));
}

// --- log -----------------------------------------------------------------------------------------

class LogTest : public testing::Test {
 protected:
    void Append(const std::string& text) {
        std::ofstream(folder_.File(), std::ios::binary | std::ios::app) << text;
    }
    std::wstring Folder() const { return L" \"" + folder_.Path().wstring() + L"\""; }

    const kit::LogFolder folder_;
};

TEST_F(LogTest, PrintsTheFile) {
    Append("one\r\ntwo\r\nthree\r\nbeing writ");
    EXPECT_EQ(Finished(L"log" + Folder()).output, "one\ntwo\nthree\n");
    EXPECT_EQ(Finished(L"log --lines 2" + Folder()).output, "two\nthree\n");
    EXPECT_EQ(Finished(L"log --lines 1 --json --log" + Folder()).output, "{\"line\":\"three\"}\n");
}

TEST_F(LogTest, FindsAFolderInEveryScript) {
    const auto folder = folder_.Path() / L"Gespr\u00E4ch \u4F1A\u8B70";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "VelaAgent.log") << "one\n";
    EXPECT_EQ(Finished(L"log \"" + folder.wstring() + L"\"").output, "one\n");
    std::filesystem::remove(folder / "VelaAgent.log");
    EXPECT_THAT(Finished(L"log \"" + folder.wstring() + L"\"").errors,
                HasSubstr("Gespr\xC3\xA4"
                          "ch \xE4\xBC\x9A\xE8\xAD\xB0\n"));
}

TEST_F(LogTest, WithoutAFileFails) {
    const Finished run(L"log" + Folder());
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(run.errors, HasSubstr("velactl: no VelaAgent.log in "));
}

// The log is followed before its file exists, and when a file that is too large is renamed.
TEST_F(LogTest, FollowsTheFile) {
    const Velactl program(L"log --follow" + Folder());
    Append("one\r\ntw");
    ASSERT_TRUE(program.WaitForOutput("one\n"));
    Append("o\r\n");
    ASSERT_TRUE(program.WaitForOutput("two\n"));
    Append("three\r\n");
    std::filesystem::rename(folder_.File(), folder_.Path() / "VelaAgent.log.old");
    Append("four\r\n");
    ASSERT_TRUE(program.WaitForOutput("four\n"));
    program.Interrupt();
    EXPECT_EQ(program.Wait(), 0U);
    EXPECT_EQ(program.Output(), "one\ntwo\nthree\nfour\n");
}

}  // namespace
}  // namespace velactl_test
