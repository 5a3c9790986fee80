// velactl record.
#include <fstream>

#include "testing/unit/velactl/VelactlTest.h"

namespace velactl_test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class RecordTest : public VelactlTest {
 protected:
    std::filesystem::path File() const { return folder_.Path() / "machine.json"; }
    std::wstring Command() const { return L"record \"" + File().wstring() + L"\""; }
    std::vector<std::string> FileNames() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }
    Json Record(const std::wstring& arguments = {}) {
        const Finished run(Command() + arguments);
        EXPECT_EQ(run.exitCode, 0U) << run.errors;
        output_ = run.output;
        return Json::parse(kit::FileText(File()));
    }
    // Returns the collections of a vendor.
    static std::vector<Json> OfVendor(const Json& machine, const std::string& vendor) {
        std::vector<Json> found;
        for (const Json& collection : machine["collections"]) {
            if (collection["attributes"]["vendor"] == vendor) found.push_back(collection);
        }
        return found;
    }
    static std::vector<std::string> Calls(const Json& collection) {
        std::vector<std::string> calls;
        for (const Json& call : collection["calls"]) calls.push_back(call["call"]);
        return calls;
    }

    const kit::TemporaryFolder folder_;
    std::string output_;
};

TEST_F(RecordTest, DescribesTheTouchpad) {
    Plug();
    const std::vector<Json> touchpads = OfVendor(Record(), "0x0488");
    ASSERT_EQ(touchpads.size(), 1U);
    const Json& touchpad = touchpads[0];
    EXPECT_EQ(touchpad["verdict"], "chosen as the touchpad");
    EXPECT_EQ(touchpad["attributes"],
              Json({{"vendor", "0x0488"}, {"product", "0x1234"}, {"version", "0x0063"}}));
    EXPECT_EQ(touchpad["strings"]["product"], "Vela Virtual Touchpad");
    const Json& capabilities = touchpad["capabilities"];
    EXPECT_EQ(capabilities["usagePage"], "0xff80");
    EXPECT_EQ(capabilities["linkCollections"].size(), 1U);
    EXPECT_EQ(capabilities["output"]["length"], 13);
    EXPECT_EQ(capabilities["output"]["values"].size(), 7U);
    EXPECT_EQ(capabilities["feature"]["values"][1]["logicalMaximum"], 2000);
}

// The parser's records do not tell the bits; the reports that it sets usages in do.
TEST_F(RecordTest, TellsThePlaceOfTheBits) {
    Plug();
    const Json capabilities = OfVendor(Record(), "0x0488").at(0)["capabilities"];
    EXPECT_EQ(capabilities["output"]["values"][1]["reports"]["first"],
              "02 00 ff 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(capabilities["input"]["buttons"][0]["reports"],
              Json({{"first", "01 01 00"}, {"last", "01 80 00"}}));
}

TEST_F(RecordTest, TellsTheSlotsOfAnArray) {
    TouchpadLayout layout;
    layout.activeUsagesAsArray = true;
    Plug(layout);
    const Json capabilities = OfVendor(Record(), "0x0488").at(0)["capabilities"];
    EXPECT_EQ(capabilities["output"]["buttons"][0]["reports"],
              Json({{"first", "02 00 00 00 00 00 00 00 01 00 00 00 00"},
                    {"last", "02 00 00 00 00 00 00 00 04 00 00 00 00"},
                    {"full", "02 00 00 00 00 00 00 00 01 02 03 04 00"},
                    {"sharesSlots", false}}));
}

// The length of the preparsed data comes from the class driver; what it means is the system's.
TEST_F(RecordTest, TakesThePreparsedDataAsTheClassDriverReturnsIt) {
    Plug();
    const Json touchpad = OfVendor(Record(), "0x0488").at(0);
    EXPECT_GT(touchpad["preparsedData"].get<std::string>().size(), 100U);
    EXPECT_THAT(Calls(touchpad), Contains("IOCTL_HID_GET_COLLECTION_DESCRIPTOR"));
}

TEST_F(RecordTest, RequestsStringsOnlyOfWantedVendors) {
    Plug();
    virtual_touchpad::Plug(virtual_touchpad::SettingsOf(HapticLayout{}), L"haptic");
    const Json machine = Record();
    EXPECT_EQ(machine["wantedVendors"], Json({"0x0488"}));
    const Json haptic = OfVendor(machine, "0x3f0a").at(0);
    EXPECT_FALSE(haptic.contains("strings"));
    for (const Json& call : haptic["calls"]) EXPECT_EQ(call["answeredBy"], "system") << call;
    EXPECT_THAT(Calls(OfVendor(machine, "0x0488").at(0)), Contains("HidD_GetProductString"));

    const Json everyString = Record(L" --strings");
    EXPECT_EQ(OfVendor(everyString, "0x3f0a").at(0)["strings"]["product"],
              "Virtual Haptic Touchpad");
}

// A device's instance id may be its serial number.
TEST_F(RecordTest, HasANumberInPlaceOfTheInstanceId) {
    virtual_touchpad::Plug(TouchpadLayout{}, L"serial-4711");
    const Json machine = Record();
    EXPECT_THAT(machine.dump(), Not(HasSubstr("4711")));
    EXPECT_THAT(OfVendor(machine, "0x0488").at(0)["path"].get<std::string>(),
                testing::StartsWith("\\\\?\\hid#vtouchpad#"));
}

TEST_F(RecordTest, TellsTheRequestsInTheFileAndInTheOutput) {
    Plug();
    const Json machine = Record();
    ASSERT_FALSE(machine["requests"].empty());
    for (const Json& request : machine["requests"]) {
        EXPECT_THAT(output_, HasSubstr(request["call"].get<std::string>()));
    }
    EXPECT_THAT(machine["about"].dump(), HasSubstr("No serial number was read"));
    for (const Json& collection : machine["collections"]) {
        for (const Json& call : collection["calls"]) {
            EXPECT_TRUE(call.contains("error") || call.contains("status")) << call;
            EXPECT_TRUE(call["microseconds"].is_number_integer()) << call;
        }
    }
}

// An open with read or write access would fail beside the host's, which shares neither.
TEST_F(RecordTest, OpensWithoutAccessBesideAHost) {
    Plug();
    const kit::AgentDll host;
    ASSERT_EQ(host.Init(), VELA_INIT_OPEN);
    const std::uint64_t outputs = Touchpad().Device().LastSequence();
    const std::vector<Json> touchpads = OfVendor(Record(), "0x0488");
    ASSERT_EQ(touchpads.size(), 1U);
    for (const Json& call : touchpads[0]["calls"]) EXPECT_EQ(call.value("error", 0), 0) << call;
    EXPECT_EQ(Touchpad().Device().LastSequence(), outputs);
    EXPECT_EQ(Touchpad().Device().State().featureGetCount, 0U);
    EXPECT_EQ(host.UnInit(), 1);
}

TEST_F(RecordTest, WorksWithoutTheLibrary) {
    Plug();
    EXPECT_EQ(OfVendor(Record(L" --dll C:\\nowhere\\VelaAgent.dll"), "0x0488").size(), 1U);
}

TEST_F(RecordTest, ReplacesAnOldFile) {
    std::ofstream(File()) << "old";
    EXPECT_EQ(Record()["format"], 1);
    EXPECT_THAT(FileNames(), ElementsAre("machine.json"));
}

// A folder cannot be replaced by a file.
TEST_F(RecordTest, LeavesNothingBehindWhenTheFileCannotBeReplaced) {
    std::filesystem::create_directory(File());
    const Finished run(Command());
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(run.errors, HasSubstr("velactl: cannot write "));
    EXPECT_THAT(FileNames(), ElementsAre("machine.json"));
}

// A folder in the place of the temporary file prevents writing.
TEST_F(RecordTest, LeavesTheOldFileWhenTheNewOneCannotBeWritten) {
    std::ofstream(File()) << "old";
    std::filesystem::create_directory(folder_.Path() / "machine.json.part");
    EXPECT_EQ(Finished(Command()).exitCode, 1U);
    EXPECT_EQ(kit::FileText(File()), "old");
}

// Whenever it is interrupted, the file is whole, or there is none.
TEST_F(RecordTest, LeavesAWholeFileOrNoneWhenInterrupted) {
    Plug();
    for (DWORD attempt = 0; attempt < 5; ++attempt) {
        std::filesystem::remove(File());
        const Velactl program(Command());
        Sleep(attempt * 40);
        try {
            program.Interrupt();
        } catch (const std::runtime_error&) {
            // It has ended already.
        }
        program.Wait();
        if (!std::filesystem::exists(File())) continue;
        EXPECT_THAT(FileNames(), ElementsAre("machine.json"));
        EXPECT_FALSE(Json::parse(kit::FileText(File()), nullptr, false).is_discarded());
    }
}

}  // namespace
}  // namespace velactl_test
