// velactl report.
#include <fstream>
#include <sstream>

#include "VelaAgentVersion.h"
#include "testing/kit/LogFolder.h"
#include "testing/unit/velactl/VelactlTest.h"
#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace velactl_test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class ReportTest : public VelactlTest {
 protected:
    ReportTest() { std::filesystem::create_directories(log_.Path()); }

    std::filesystem::path File() const { return folder_.Path() / "report.txt"; }
    std::wstring Command(const std::wstring& arguments) const {
        return L"report \"" + File().wstring() + L"\"" + arguments;
    }
    std::string Report(const std::wstring& arguments = {}) const {
        const Finished run(Command(arguments));
        EXPECT_EQ(run.exitCode, 0U) << run.errors;
        return kit::FileText(File());
    }
    static std::string FirstTenLines(const std::string& report) {
        std::istringstream lines(report);
        std::string head;
        std::string line;
        for (int i = 0; i < 10 && std::getline(lines, line); ++i) head += line + '\n';
        return head;
    }
    // Returns the text between this title and the next one.
    static std::string Section(const std::string& report, const std::string& title) {
        const std::string heading = "\n== " + title + " ==\n";
        const auto start = report.find(heading);
        if (start == std::string::npos) return "no section " + title;
        const auto from = start + heading.size();
        return report.substr(from, report.find("\n== ", from) - from);
    }
    std::wstring LogOption() const { return L" --log \"" + log_.Path().wstring() + L"\""; }

    const kit::TemporaryFolder folder_;
    const kit::LogFolder log_;
};

// --- broken machines: the first ten lines tell the cause -----------------------------------------

using BrokenMachineTest = ReportTest;

TEST_F(BrokenMachineTest, WithoutATouchpad) {
    EXPECT_THAT(FirstTenLines(Report()),
                AllOf(HasSubstr("\nCAUSE: touchpad: none of "), HasSubstr("  next: attach it"),
                      HasSubstr("\nTouchpads that match: 0\n")));
}

TEST_F(BrokenMachineTest, WhoseTouchpadAnotherProcessHolds) {
    Plug();
    const kit::AgentDll other;
    ASSERT_EQ(other.Init(), VELA_INIT_OPEN);
    EXPECT_THAT(FirstTenLines(Report()),
                AllOf(HasSubstr("\nCAUSE: other sessions: another process has a session open\n"),
                      HasSubstr("\nTouchpads that match: 1 (bus: ")));
    EXPECT_EQ(other.UnInit(), 1);
}

TEST_F(BrokenMachineTest, WithATouchpadOfAnotherVendor) {
    TouchpadLayout layout;
    layout.vendorId = 0x1A2B;
    Plug(layout);
    EXPECT_THAT(FirstTenLines(Report()),
                AllOf(HasSubstr("\nCAUSE: touchpad: vendor 0x1a2b, product 0x1234: a vendor that "
                                "is not looked for\n"),
                      HasSubstr("add a section [1a2b] to \"Vela.ini\"")));
}

TEST_F(BrokenMachineTest, WhoseTouchpadHasNoButtons) {
    auto settings = virtual_touchpad::SettingsOf(TouchpadLayout{});
    settings.reportDescriptor = virtual_touchpad::ReportDescriptorBuilder()
                                    .UsagePage(0xFF80)
                                    .Usage(0x80)
                                    .Collection(virtual_touchpad::CollectionKind::Application)
                                    .ReportId(virtual_touchpad::kLightReportId)
                                    .Value(virtual_touchpad::MainItem::Output, 0x20, 8, 0xFF)
                                    .EndCollection()
                                    .Bytes();
    virtual_touchpad::Plug(settings);
    EXPECT_THAT(FirstTenLines(Report()),
                HasSubstr("\nCAUSE: touchpad: vendor 0x0488, product 0x1234: no button capability "
                          "on the wanted usage page\n"));
}

TEST_F(BrokenMachineTest, WhoseTouchpadLacksLights) {
    TouchpadLayout layout;
    layout.missingLightUsages = {0x20, 0x21};
    Plug(layout);
    EXPECT_THAT(FirstTenLines(Report()),
                HasSubstr("\nCAUSE: buttons and lights: its reports lack camera light for on "
                          "(output 0x0020), camera light for off (output 0x0021)\n"));
}

TEST_F(BrokenMachineTest, WithoutTheLogFolder) {
    TouchpadLayout layout;
    layout.hasRequest = false;
    Plug(layout);
    EXPECT_THAT(FirstTenLines(Report(L" --log C:\\nowhere")),
                AllOf(HasSubstr("\nCAUSE: log folder: no folder C:\\nowhere\n"),
                      HasSubstr("  next: create it")));
}

// --- what else it contains -----------------------------------------------------------------------

TEST_F(ReportTest, OfAWorkingMachineHasNoCause) {
    TouchpadLayout layout;
    layout.hasRequest = false;
    Plug(layout);
    EXPECT_THAT(FirstTenLines(Report(LogOption())), HasSubstr("\nCAUSE: none found"));
}

TEST_F(ReportTest, TellsThatTwoTouchpadsMatch) {
    virtual_touchpad::Plug(TouchpadLayout{}, L"first");
    virtual_touchpad::Plug(TouchpadLayout{}, L"second");
    EXPECT_THAT(
        FirstTenLines(Report()),
        HasSubstr("\nTouchpads that match: 2 (bus: unknown, unknown); the agent drives only"));
}

TEST_F(ReportTest, HasTheVersionsAndTheHashOfTheLibrary) {
    const auto dll = folder_.Path() / "VelaAgent.dll";
    std::ofstream(dll) << "abc";  // its SHA-256 is in FIPS 180-2
    const std::string versions = Section(Report(L" --dll \"" + dll.wstring() + L"\""), "versions");
    EXPECT_THAT(versions, HasSubstr("velactl          " VELA_AGENT_VERSION "\n"));
    EXPECT_THAT(versions,
                HasSubstr("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
}

TEST_F(ReportTest, HasTheDoctorTheDevicesAndTheRecording) {
    Plug();
    const std::string report = Report();
    EXPECT_THAT(Section(report, "doctor"), HasSubstr("ok       touchpad: vendor 0x0488"));
    EXPECT_THAT(Section(report, "devices"), HasSubstr("chosen as the touchpad"));
    const Json machine = Json::parse(Section(report, "recording"), nullptr, false);
    ASSERT_FALSE(machine.is_discarded());
    EXPECT_EQ(machine["format"], 1);
}

TEST_F(ReportTest, HasTheEndsOfBothLogsAsTheyWereBefore) {
    std::ofstream file(log_.File(), std::ios::binary);
    for (int line = 1; line <= 250; ++line) file << "line " << line << "\r\n";
    file.close();
    std::ofstream(log_.Backup(), std::ios::binary) << "older\r\n";
    const std::string report = Report(LogOption());
    const std::string log = Section(report, "VelaAgent.log");
    EXPECT_EQ(log.substr(0, log.find('\n')), "line 51");
    EXPECT_THAT(log, testing::EndsWith("line 250\n"));
    EXPECT_EQ(Section(report, "VelaAgent.log.old"), "older\n");
}

TEST_F(ReportTest, HasTheVendorFile) {
    const auto dll = folder_.Path() / "VelaAgent.dll";
    std::filesystem::copy_file(ProgramFolder() / "VelaAgent.dll", dll);
    const std::wstring option = L" --dll \"" + dll.wstring() + L"\"";
    EXPECT_EQ(Section(Report(option), "Vela.ini"), "there is none\n");
    std::ofstream(folder_.Path() / "Vela.ini") << "[1A2B]\n";
    EXPECT_EQ(Section(Report(option), "Vela.ini"), "[1A2B]\n");
}

TEST_F(ReportTest, HasNeitherInstanceIdsNorTheUsersFolder) {
    virtual_touchpad::Plug(TouchpadLayout{}, L"serial-4711");
    wchar_t profile[MAX_PATH] = {};
    ASSERT_NE(GetEnvironmentVariableW(L"USERPROFILE", profile, MAX_PATH), 0U);
    const std::string report = Report(L" --log \"" + std::wstring(profile) + L"\\nowhere\"");
    EXPECT_THAT(report, Not(HasSubstr("serial-4711")));
    EXPECT_THAT(report, HasSubstr("no folder %USERPROFILE%\\nowhere\n"));
    EXPECT_THAT(report, Not(HasSubstr(std::filesystem::path(profile).string() + "\\nowhere")));
}

TEST_F(ReportTest, PrintsItsFirstLines) {
    const Finished run(Command({}));
    EXPECT_THAT(run.output, AllOf(HasSubstr("CAUSE: "), Not(HasSubstr("== versions"))));
    EXPECT_EQ(kit::FileText(File()).find(run.output), 0U);
}

}  // namespace
}  // namespace velactl_test
