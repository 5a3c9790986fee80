// The commands devices and caps of velactl.
#include <fstream>

#include "testing/kit/LogFolder.h"
#include "testing/kit/windows/RequestsDuring.h"
#include "testing/unit/velactl/VelactlTest.h"

namespace velactl_test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Key;

class DevicesTest : public VelactlTest {
 protected:
    // Returns the row of a path.
    Json Row(const std::string& path, const std::wstring& arguments = {}) {
        const Finished run(L"devices --json " + arguments);
        EXPECT_EQ(run.exitCode, 0U);
        for (const Json& row : run.results.at(0)) {
            if (row["path"] == path) return row;
        }
        ADD_FAILURE() << path << " is not in " << run.output;
        return {};
    }
    std::string Verdict(const std::wstring& path) {
        return Row({path.begin(), path.end()})["verdict"].get<std::string>();
    }
};

TEST_F(DevicesTest, DescribesTheChosenTouchpad) {
    Plug();
    EXPECT_EQ(Row(Path()), Json({{"vendor", "0x0488"},
                                 {"product", "0x1234"},
                                 {"version", "0x0063"},
                                 {"page", "0xff80"},
                                 {"usage", "0x0080"},
                                 {"name", "Vela Virtual Touchpad"},
                                 {"chosen", true},
                                 {"verdict", "chosen as the touchpad"},
                                 {"path", Path()}}));
}

TEST_F(DevicesTest, DescribesTheOtherDevicesAsText) {
    Plug();
    const Finished run(L"devices");
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_THAT(run.output, HasSubstr("vendor"));
    EXPECT_THAT(run.output, HasSubstr("another usage page or usage"));
    EXPECT_THAT(run.output, HasSubstr(Path() + "\n"));
}

// --- which devices receive requests --------------------------------------------------------------

// A touchpad, one of another vendor, and a haptic one.
class DeviceRequestsTest : public VelactlTest {
 protected:
    DeviceRequestsTest() {
        Plug();
        TouchpadLayout layout;
        layout.vendorId = 0x1A2B;
        virtual_touchpad::Plug(layout, L"other");
        virtual_touchpad::Plug(virtual_touchpad::SettingsOf(HapticLayout{}), L"haptic");
    }
    // Returns the requests that reach each device while the command runs.
    std::vector<Requests> RequestsOf(const std::wstring& command, unsigned long exitCode = 0) {
        const VirtualDevice touchpad;
        const VirtualDevice other(L"other");
        const VirtualDevice haptic(L"haptic");
        return RequestsDuring({&touchpad, &other, &haptic},
                              [&] { EXPECT_EQ(Finished(command).exitCode, exitCode); });
    }
};

const Requests kNone;
const Requests kName{{"string", 1}};

TEST_F(DeviceRequestsTest, DevicesQueriesTheChosenOnesForTheirNames) {
    EXPECT_THAT(RequestsOf(L"devices"), ElementsAre(kName, kNone, kName));
}

TEST_F(DeviceRequestsTest, DevicesWithNamesQueriesEveryOne) {
    EXPECT_THAT(RequestsOf(L"devices --names"), ElementsAre(kName, kName, kName));
}

TEST_F(DeviceRequestsTest, CapsQueriesNone) {
    EXPECT_THAT(RequestsOf(L"caps"), ElementsAre(kNone, kNone, kNone));
    EXPECT_THAT(RequestsOf(L"caps --haptic"), ElementsAre(kNone, kNone, kNone));
}

// Doctor opens the touchpad, whose firmware does not answer.
TEST_F(DeviceRequestsTest, DoctorQueriesTheTouchpadOnly) {
    const std::vector<Requests> requests = RequestsOf(L"doctor", 1);
    EXPECT_THAT(requests.at(0), Contains(Key("output")));
    EXPECT_THAT(std::vector<Requests>(requests.begin() + 1, requests.end()),
                ElementsAre(kNone, kNone));
}

// --- devices that are not chosen -----------------------------------------------------------------

struct Rejected {
    const char* name;
    void (*spoil)(TouchpadLayout&);
    const char* verdict;
};

class RejectedTest : public DevicesTest, public testing::WithParamInterface<Rejected> {};

INSTANTIATE_TEST_SUITE_P(
    , RejectedTest,
    testing::Values(Rejected{"AnotherVendor",
                             [](TouchpadLayout& layout) { layout.vendorId = 0x1A2B; },
                             "a vendor that is not looked for"},
                    Rejected{"AnotherPage",
                             [](TouchpadLayout& layout) { layout.usagePage = 0xFF81; },
                             "another usage page or usage"},
                    Rejected{"AnotherUsage", [](TouchpadLayout& layout) { layout.usage = 0x81; },
                             "another usage page or usage"}),
    [](const auto& test) { return test.param.name; });

TEST_P(RejectedTest, IsListedWithTheReason) {
    TouchpadLayout layout;
    GetParam().spoil(layout);
    Plug(layout);
    const Json row = Row(Path());
    EXPECT_EQ(row["name"], nullptr);
    EXPECT_EQ(row["chosen"], false);
    EXPECT_EQ(row["verdict"], GetParam().verdict);
    EXPECT_EQ(Row(Path(), L"--names")["name"], "Vela Virtual Touchpad");
}

TEST_F(DevicesTest, ListsTheLaterOfTwoAndTheHapticOne) {
    const std::wstring first = virtual_touchpad::Plug(TouchpadLayout{}, L"first");
    const std::wstring second = virtual_touchpad::Plug(TouchpadLayout{}, L"second");
    const std::wstring haptic =
        virtual_touchpad::Plug(virtual_touchpad::SettingsOf(HapticLayout{}), L"haptic");
    EXPECT_THAT(
        (std::vector<std::string>{Verdict(first), Verdict(second)}),
        testing::UnorderedElementsAre("chosen as the touchpad", "an earlier one is the touchpad"));
    EXPECT_EQ(Verdict(haptic), "chosen as the haptic touchpad");
}

TEST_F(DevicesTest, ReadsTheVendorFileBesideTheLibrary) {
    const kit::LogFolder folder;
    const std::filesystem::path dll = folder.Path() / "VelaAgent.dll";
    std::filesystem::copy_file(ProgramFolder() / "VelaAgent.dll", dll);
    std::ofstream(folder.Path() / "Vela.ini") << "[1A2B]\n";
    TouchpadLayout layout;
    layout.vendorId = 0x1A2B;
    Plug(layout);
    EXPECT_EQ(Row(Path(), L"--dll \"" + dll.wstring() + L"\"")["chosen"], true);
}

// --- caps ----------------------------------------------------------------------------------------

class CapsTest : public VelactlTest {
 protected:
    // Returns names such as "output value 0x0020".
    static std::vector<std::string> Names(const Json& rows) {
        std::vector<std::string> names;
        for (const Json& row : rows) {
            names.push_back(row["report"].get<std::string>() + " " +
                            row["kind"].get<std::string>() + " " + row["usage"].get<std::string>());
        }
        return names;
    }
};

TEST_F(CapsTest, ListsTheTouchpadsCatalogue) {
    Plug();
    const Finished run(L"caps --json");
    EXPECT_EQ(run.exitCode, 0U);
    ASSERT_EQ(run.results.size(), 1U);
    EXPECT_THAT(
        Names(run.results[0]),
        ElementsAre("input value 0x0048", "input button 0x0040", "input button 0x0041",
                    "input button 0x0042", "input button 0x0043", "input button 0x0044",
                    "input button 0x0045", "input button 0x0046", "input button 0x0047",
                    "output value 0x0020", "output value 0x0021", "output value 0x0022",
                    "output value 0x0024", "output value 0x0026", "output value 0x0027",
                    "output value 0x00a2", "output button 0x0001", "output button 0x0002",
                    "output button 0x0003", "output button 0x0004", "output button 0x0030",
                    "feature value 0x0061", "feature value 0x0062", "feature value 0x0063"));
    const Json& clickMode = run.results[0][22];
    EXPECT_EQ(clickMode["reportId"], virtual_touchpad::kClickModeReportId);
    EXPECT_EQ(clickMode["page"], "0xff80");
    EXPECT_EQ(clickMode["bits"], 16);
}

TEST_F(CapsTest, IsATableForPeople) {
    Plug();
    const Finished run(L"caps");
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_THAT(run.output, testing::StartsWith("report   kind    page    usage   reportId  bits"));
    EXPECT_THAT(run.output, HasSubstr("\nfeature  value   0xff80  0x0062  4         16"));
}

TEST_F(CapsTest, ListsTheHapticTouchpadsToo) {
    virtual_touchpad::Plug(virtual_touchpad::SettingsOf(HapticLayout{}), L"haptic");
    const Finished run(L"caps --haptic --json");
    EXPECT_EQ(run.exitCode, 0U);
    ASSERT_EQ(run.results.size(), 1U);
    EXPECT_THAT(Names(run.results[0]), Contains("feature value 0x0023"));
}

}  // namespace
}  // namespace velactl_test
