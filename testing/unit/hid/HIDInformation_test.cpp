// The record of a found collection: its first state, its look-ups, its destruction.
#include "hid/HIDInformation.h"

#include <cstring>
#include <limits>
#include <type_traits>

#include "testing/unit/hid/HidTest.h"

namespace hid_test {
namespace {

using vela::CHIDInformation;
using vela::MakeCapsKey;

static_assert(!std::is_copy_constructible_v<CHIDInformation>);
static_assert(!std::is_copy_assignable_v<CHIDInformation>);
static_assert(!std::is_polymorphic_v<CHIDInformation>);

template <typename Record>
bool IsAllZero(const Record& record) {
    const Record zero{};
    return std::memcmp(&record, &zero, sizeof record) == 0;
}

template <typename Record>
bool AreSame(const Record& one, const Record& other) {
    return std::memcmp(&one, &other, sizeof one) == 0;
}

// Returns capabilities in which every byte is `mark`.
template <typename Caps>
Caps Marked(int mark) {
    Caps caps;
    std::memset(&caps, mark, sizeof caps);
    return caps;
}

struct KeyCase {
    std::uint32_t reportType;
    std::uint16_t usage;
    const wchar_t* key;
};

class CapsKey : public testing::TestWithParam<KeyCase> {};

TEST_P(CapsKey, NamesReportTypeAndUsage) {
    EXPECT_EQ(MakeCapsKey(GetParam().reportType, GetParam().usage), GetParam().key);
}

INSTANTIATE_TEST_SUITE_P(
    All, CapsKey,
    testing::Values(KeyCase{0, 69, L"HID_INPUT_69"}, KeyCase{1, 48, L"HID_OUTPUT_48"},
                    KeyCase{2, 98, L"HID_FEATURE_98"}, KeyCase{2, 35, L"HID_FEATURE_35"},
                    KeyCase{0, 0, L"HID_INPUT_0"}, KeyCase{1, 7, L"HID_OUTPUT_7"},
                    KeyCase{1, 0xFFFF, L"HID_OUTPUT_65535"}, KeyCase{3, 98, L"_98"},
                    KeyCase{5, 0, L"_0"},
                    KeyCase{(std::numeric_limits<std::uint32_t>::max)(), 0x8000, L"_32768"}));

class HIDInformationTest : public HidTest {};

TEST_F(HIDInformationTest, IsEmptyAtFirst) {
    const CHIDInformation record;
    EXPECT_TRUE(record.devicePath.empty());
    EXPECT_TRUE(IsAllZero(record.attributes));
    EXPECT_TRUE(IsAllZero(record.caps));
    EXPECT_EQ(record.preparsedData, nullptr);
    EXPECT_THAT(record.valueCapsMap, IsEmpty());
    EXPECT_THAT(record.buttonCapsMap, IsEmpty());
}

TEST_F(HIDInformationTest, EndsWithALineButFreesNothingWhenEmpty) {
    { const CHIDInformation record; }
    EXPECT_THAT(machine_.Calls(), IsEmpty());
    EXPECT_THAT(log_.Texts(),
                ElementsAre("INFO ~CHIDInformation: CHIDInformation clear device UsagePage (0),  "
                            "Usage (0) information"));
}

TEST_F(HIDInformationTest, EndsWithTheCollectionsUsageInHexadecimal) {
    {
        CHIDInformation record;
        record.caps.UsagePage = 0xFF8A;
        record.caps.Usage = 0x0C;
    }
    EXPECT_THAT(log_.Texts(),
                ElementsAre("INFO ~CHIDInformation: CHIDInformation clear device UsagePage (ff8a), "
                            " Usage (c) information"));
}

TEST_F(HIDInformationTest, FreesItsPreparsedDataOnceWithTheLastReference) {
    Plug();
    auto record = Scan();
    machine_.ForgetCalls();
    auto second = record;
    record.reset();
    EXPECT_EQ(PreparsedDataInUse(), 1U);
    second.reset();
    EXPECT_EQ(PreparsedDataInUse(), 0U);
    EXPECT_THAT(machine_.CallTexts(), ElementsAre("HidD_FreePreparsedData()"));
}

TEST_F(HIDInformationTest, IsLoggedBeforeItsPreparsedDataIsFreed) {
    Plug();
    auto record = Scan();
    bool logged = false;
    machine_.SetFaultPolicy([&](const simulator::Call& call) -> std::optional<Fault> {
        if (call.function == "HidD_FreePreparsedData") {
            logged = log_.WaitForLine("CHIDInformation clear device");
        }
        return std::nullopt;
    });
    record.reset();
    EXPECT_TRUE(logged);
}

// --- look-ups ------------------------------------------------------------------------------------

class CapabilityLookup : public HIDInformationTest {
 protected:
    CapabilityLookup() {
        // Every key of the record has a mark of its own.
        int mark = 0;
        for (const wchar_t* const key : kKeys) {
            record_.valueCapsMap[key] = Marked<HIDP_VALUE_CAPS>(++mark);
            record_.buttonCapsMap[key] = Marked<HIDP_BUTTON_CAPS>(0x10 + mark);
        }
    }

    static constexpr const wchar_t* kKeys[] = {L"HID_INPUT_98", L"HID_OUTPUT_98", L"HID_FEATURE_98",
                                               L"_98"};
    CHIDInformation record_;
};

TEST_F(CapabilityLookup, OfAFeatureValueGivesTheWholeRecord) {
    HIDP_VALUE_CAPS caps{};
    EXPECT_TRUE(record_.GetFeatureValueCaps(98, caps));
    EXPECT_TRUE(AreSame(caps, Marked<HIDP_VALUE_CAPS>(3)));
}

TEST_F(CapabilityLookup, OfAFeatureValueSearchesNoOtherReportType) {
    record_.valueCapsMap.erase(L"HID_FEATURE_98");
    auto caps = Marked<HIDP_VALUE_CAPS>(0x77);
    EXPECT_FALSE(record_.GetFeatureValueCaps(98, caps));
    EXPECT_TRUE(AreSame(caps, Marked<HIDP_VALUE_CAPS>(0x77)));
}

TEST_F(CapabilityLookup, OfAFeatureValueSearchesNoButtons) {
    record_.valueCapsMap.clear();
    HIDP_VALUE_CAPS caps{};
    EXPECT_FALSE(record_.GetFeatureValueCaps(98, caps));
}

TEST_F(CapabilityLookup, OfAButtonGivesTheWholeRecordOfItsReportType) {
    for (const int reportType : {0, 1, 2}) {
        HIDP_BUTTON_CAPS caps{};
        EXPECT_TRUE(record_.GetButtonCaps(static_cast<std::uint32_t>(reportType), 98, caps));
        EXPECT_TRUE(AreSame(caps, Marked<HIDP_BUTTON_CAPS>(0x11 + reportType)));
    }
}

// A catalogue that was filled from a device has no such key.
TEST_F(CapabilityLookup, OfAButtonOfAnotherReportTypeUsesTheKeyWithoutAName) {
    HIDP_BUTTON_CAPS caps{};
    EXPECT_TRUE(record_.GetButtonCaps(5, 98, caps));
    EXPECT_TRUE(AreSame(caps, Marked<HIDP_BUTTON_CAPS>(0x14)));
}

TEST_F(CapabilityLookup, OfWhatIsNotThereLeavesTheResultAndTheCatalogueAlone) {
    auto button = Marked<HIDP_BUTTON_CAPS>(0x77);
    auto value = Marked<HIDP_VALUE_CAPS>(0x77);
    for (const std::uint32_t reportType : {0U, 1U, 2U, 5U}) {
        EXPECT_FALSE(record_.GetButtonCaps(reportType, 9, button));
    }
    EXPECT_FALSE(record_.GetFeatureValueCaps(9, value));
    EXPECT_TRUE(AreSame(button, Marked<HIDP_BUTTON_CAPS>(0x77)));
    EXPECT_TRUE(AreSame(value, Marked<HIDP_VALUE_CAPS>(0x77)));
    EXPECT_THAT(record_.valueCapsMap, testing::SizeIs(4));
    EXPECT_THAT(record_.buttonCapsMap, testing::SizeIs(4));
}

}  // namespace
}  // namespace hid_test
