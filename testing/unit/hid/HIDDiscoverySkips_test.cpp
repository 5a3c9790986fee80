// Interfaces that a scan rejects, and what it keeps allocated of them.
#include "testing/unit/hid/HidTest.h"
#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace hid_test {
namespace {

using virtual_touchpad::MainItem;
using virtual_touchpad::ReportDescriptorBuilder;

const std::string kFound =
    "INFO ScanHIDInformation: GetHIDInformation PID (0x1234) FW version(0x63).";

struct FailingCall {
    const char* function;
    Fault fault;
    std::vector<std::string> log;      // besides the line of the device found
    std::vector<std::string> queries;  // about the first device
    std::size_t preparsedDataLeft;     // of the first device
};

class FailingCandidate : public HidTest, public testing::WithParamInterface<FailingCall> {};

TEST_P(FailingCandidate, IsClosedAndTheNextOneTaken) {
    Plug();
    const auto second = Plug();
    machine_.FailNext(GetParam().function, GetParam().fault);
    {
        const auto record = Scan();
        EXPECT_EQ(record->devicePath, second->Path());
        EXPECT_EQ(record->valueCapsMap.size(), 11U);
        EXPECT_EQ(record->buttonCapsMap.size(), 13U);
        EXPECT_EQ(PreparsedDataInUse(), GetParam().preparsedDataLeft + 1);
        log_.Finish();
    }
    EXPECT_EQ(PreparsedDataInUse(), GetParam().preparsedDataLeft);

    auto log = GetParam().log;
    log.push_back(kFound);
    EXPECT_EQ(log_.Texts(), log);
    auto queries = GetParam().queries;
    for (const char* const query : {"filters", "value pages", "button pages"}) {
        queries.emplace_back(query);
    }
    EXPECT_EQ(query_.Questions(), queries);
}

// The list calls return a status and set no last error.
INSTANTIATE_TEST_SUITE_P(
    Calls, FailingCandidate,
    testing::Values(
        FailingCall{"CreateFileW", Fault::Error(5), {}, {}, 0},
        FailingCall{"HidD_GetPreparsedData", Fault::Error(1167), {}, {}, 0},
        FailingCall{"HidD_GetAttributes", Fault::Error(1167), {}, {}, 1},
        FailingCall{"HidP_GetCaps", Fault::Status(HIDP_STATUS_INVALID_PREPARSED_DATA), {}, {}, 1},
        FailingCall{"HidP_GetCaps", Fault::Status(HIDP_STATUS_NULL), {}, {}, 1},
        FailingCall{
            "HidP_GetValueCaps",
            Fault::Result(HIDP_STATUS_INTERNAL_ERROR, 31),
            {"ERROR FillValueCapUsagePages: FillValueCapUsagePages HidP_GetValueCaps faild, "
             "last error (31)."},
            {"filters", "value pages"},
            1},
        FailingCall{"HidP_GetButtonCaps",
                    Fault::Result(HIDP_STATUS_INTERNAL_ERROR, 31),
                    {"ERROR FillButtonCapUsagePages: FillButtonCapUsagePages HidP_GetValueCaps "
                     "faild, last error (31)."},
                    {"filters", "value pages", "button pages"},
                    1}),
    [](const auto& test) { return test.param.function + std::to_string(test.index); });

class SkippedCandidate : public HidTest {
 protected:
    static std::string NoMatch(const std::string& function) {
        return "WARNING " + function + ": " + function +
               " failed, doesn't have matched report type";
    }
    // Plugs a device of the touchpad's vendor, page and usage with these fields.
    void PlugCollection(ReportDescriptorBuilder open) {
        DeviceDescription description = Describe({});
        description.reportDescriptor = open.EndCollection().Bytes();
        machine_.Plug(description);
    }
    static ReportDescriptorBuilder Collection() {
        ReportDescriptorBuilder builder;
        builder.UsagePage(0xFF80).Usage(0x80).Collection(
            virtual_touchpad::CollectionKind::Application);
        return builder;
    }
};

TEST_F(SkippedCandidate, HasNoValueOnAnyWantedPage) {
    PlugCollection(Collection()
                       .Buttons(MainItem::Input, 0x40, 0x47)
                       .UsagePage(0xFF81)
                       .Value(MainItem::Feature, 98, 8, 255));
    const auto second = Plug();
    EXPECT_EQ(Scan()->devicePath, second->Path());
    EXPECT_THAT(log_.TextsOf("FillValueCapUsagePages"),
                ElementsAre(NoMatch("FillValueCapUsagePages")));
    EXPECT_THAT(query_.Questions(),
                ElementsAre("filters", "value pages", "filters", "value pages", "button pages"));
}

TEST_F(SkippedCandidate, HasNoButtonOnAnyWantedPage) {
    PlugCollection(Collection().Value(MainItem::Feature, 98, 8, 255));
    const auto second = Plug();
    const auto record = Scan();
    EXPECT_EQ(record->devicePath, second->Path());
    EXPECT_THAT(log_.Texts(), ElementsAre(NoMatch("FillButtonCapUsagePages"), kFound));
}

TEST_F(SkippedCandidate, LeavesNothingInTheRecordWhenItWasTheLast) {
    Plug();
    machine_.FailNext("HidP_GetButtonCaps", Fault::Error(31), 1);
    const auto record = Scan();
    EXPECT_TRUE(record->devicePath.empty());
    EXPECT_EQ(record->attributes.VendorID, 0);
    EXPECT_EQ(record->caps.Usage, 0);
    EXPECT_EQ(record->preparsedData, nullptr);
    EXPECT_THAT(record->valueCapsMap, IsEmpty());
    EXPECT_THAT(record->buttonCapsMap, IsEmpty());
    EXPECT_THAT(log_.TextsOf("ScanHIDInformation"), IsEmpty());
}

// Only a record frees its preparsed data, and only the device found gets a record.
TEST_F(SkippedCandidate, KeepsItsPreparsedDataAllocated) {
    TouchpadLayout other;
    other.usage = 0x81;
    Plug(other);
    for (int i = 0; i < 3; ++i) Scan();
    EXPECT_EQ(PreparsedDataInUse(), 3U);
    EXPECT_EQ(machine_.CountCalls("HidD_FreePreparsedData"), 0U);
}

TEST_F(SkippedCandidate, IsClosedBeforeTheNextOneIsOpened) {
    TouchpadLayout other;
    other.usage = 0x81;
    Plug(other);
    Plug(other);
    Plug();
    const auto record = Scan();
    std::vector<std::string> order;
    for (const std::string& call : machine_.CallTexts({"CreateFileW", "CloseHandle"})) {
        order.push_back(call.substr(0, call.find('(')));
    }
    EXPECT_THAT(order, ElementsAre("CreateFileW", "CloseHandle", "CreateFileW", "CloseHandle",
                                   "CreateFileW", "CloseHandle"));
}

TEST_F(SkippedCandidate, MayVanishBetweenTheListAndItsOpening) {
    const auto first = Plug();
    const auto second = Plug();
    machine_.SetFaultPolicy([&](const simulator::Call& call) -> std::optional<Fault> {
        if (call.function == "SetupDiDestroyDeviceInfoList") first->Unplug();
        return std::nullopt;
    });
    EXPECT_EQ(Scan()->devicePath, second->Path());
    EXPECT_THAT(log_.Texts(), testing::Contains(kFound));
}

// --- a list that is not available ----------------------------------------------------------------

class FailingList : public HidTest {};

TEST_F(FailingList, FindsNothing) {
    Plug();
    machine_.FailNext("SetupDiGetClassDevsW", Fault::Error(8));
    EXPECT_TRUE(Scan()->devicePath.empty());
    EXPECT_EQ(machine_.CountCalls("CreateFileW"), 0U);
}

TEST_F(FailingList, FindsWhatWasListedBefore) {
    const auto first = Plug();
    Plug();
    machine_.FailNext("SetupDiEnumDeviceInterfaces", Fault::Error(8), 1);
    EXPECT_EQ(Scan()->devicePath, first->Path());
    EXPECT_THAT(log_.TextsOf("GetHidDevicePathList"),
                ElementsAre("ERROR GetHidDevicePathList: SetupDiEnumDeviceInterfaces faild, last "
                            "error (8)."));
}

}  // namespace
}  // namespace hid_test
