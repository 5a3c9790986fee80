// The catalogue holds whole copies of the platform's records by report type and usage.
#include "testing/unit/hid/CatalogueTest.h"

#include "testing/simulator/hid/Collection.h"

namespace hid_test {
namespace {

using testing::UnorderedElementsAre;

template <typename Kind>
class CapabilityCatalogue : public CatalogueTest<Kind> {
 protected:
    using Fields = typename CatalogueTest<Kind>::Fields;
};

TYPED_TEST_SUITE(CapabilityCatalogue, Kinds, KindName);

TYPED_TEST(CapabilityCatalogue, HasOneEntryForASingleUsage) {
    const ParsedDevice device(typename TestFixture::Fields().Id(4).Usage(Item::Feature, 98));
    this->Want({{2, kPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->Keys(), ElementsAre(L"HID_FEATURE_98"));
    EXPECT_TRUE(this->Holds(L"HID_FEATURE_98", TypeParam::List(device, HidP_Feature).at(0)));
    EXPECT_THAT(this->log_.Texts(), IsEmpty());
}

TYPED_TEST(CapabilityCatalogue, HasTheSameRecordForEachUsageOfARange) {
    const ParsedDevice device(typename TestFixture::Fields().Range(Item::Output, 0x30, 0x32));
    this->Want({{1, kPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->Keys(),
                UnorderedElementsAre(L"HID_OUTPUT_48", L"HID_OUTPUT_49", L"HID_OUTPUT_50"));
    const auto record = TypeParam::List(device, HidP_Output).at(0);
    for (const wchar_t* const key : {L"HID_OUTPUT_48", L"HID_OUTPUT_49", L"HID_OUTPUT_50"}) {
        EXPECT_TRUE(this->Holds(key, record));
    }
}

TYPED_TEST(CapabilityCatalogue, EndsARangeAtTheHighestUsage) {
    const ParsedDevice device(typename TestFixture::Fields().Range(Item::Input, 0xFFFE, 0xFFFF));
    this->Want({{0, kPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->Keys(), UnorderedElementsAre(L"HID_INPUT_65534", L"HID_INPUT_65535"));
}

TYPED_TEST(CapabilityCatalogue, HasARangeOfOneUsage) {
    const ParsedDevice device(typename TestFixture::Fields().Range(Item::Input, 69, 69));
    this->Want({{0, kPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->Keys(), ElementsAre(L"HID_INPUT_69"));
}

// No report descriptor yields such a record, but the record's fields can hold it.
TYPED_TEST(CapabilityCatalogue, HasNothingOfARangeThatEndsBeforeItStartsYetCountsItsPage) {
    simulator::hid::MainItem item;
    item.globals.reportSize = 8;
    item.globals.reportCount = 1;
    if (TypeParam::kFieldBits != 1) item.flags = simulator::hid::MainItem::kVariable;
    item.usages = {{kPage, 0x31, 0x30, true}};
    const auto collection =
        std::make_shared<simulator::hid::Collection>(simulator::hid::LinkCollection{{kPage, 0x80}});
    collection->Reports(HidP_Output).Add(item);
    const auto preparsed = simulator::hid::AllocatePreparsedData(collection);
    this->Want({{1, kPage}});

    EXPECT_TRUE(TypeParam::kFill(&this->query_, simulator::hid::CapsOf(*collection), preparsed,
                                 this->map_));
    EXPECT_THAT(this->Keys(), IsEmpty());
    EXPECT_THAT(this->log_.Texts(), IsEmpty());
    simulator::hid::FreePreparsedData(preparsed);
}

TYPED_TEST(CapabilityCatalogue, DistinguishesTheReportTypes) {
    const ParsedDevice device(typename TestFixture::Fields()
                                  .Usage(Item::Input, 69)
                                  .Usage(Item::Output, 69)
                                  .Usage(Item::Feature, 69));
    this->Want({{0, kPage}, {1, kPage}, {2, kPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->Keys(),
                UnorderedElementsAre(L"HID_INPUT_69", L"HID_OUTPUT_69", L"HID_FEATURE_69"));
    EXPECT_TRUE(this->Holds(L"HID_INPUT_69", TypeParam::List(device, HidP_Input).at(0)));
    EXPECT_TRUE(this->Holds(L"HID_OUTPUT_69", TypeParam::List(device, HidP_Output).at(0)));
    EXPECT_TRUE(this->Holds(L"HID_FEATURE_69", TypeParam::List(device, HidP_Feature).at(0)));
}

TYPED_TEST(CapabilityCatalogue, HasOnlyWhatIsOnAWantedPageOfItsReportType) {
    const ParsedDevice device(typename TestFixture::Fields()
                                  .Usage(Item::Input, 1)
                                  .Usage(Item::Output, 2)
                                  .Page(kOtherPage)
                                  .Usage(Item::Input, 3)
                                  .Usage(Item::Output, 4)
                                  .Usage(Item::Feature, 5));
    this->Want({{0, kPage}, {1, kOtherPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->Keys(), UnorderedElementsAre(L"HID_INPUT_1", L"HID_OUTPUT_4"));
}

// Value caps and button caps come from separate calls.
TYPED_TEST(CapabilityCatalogue, HasNothingOfTheOtherKind) {
    const ParsedDevice device(Application()
                                  .Value(Item::Output, 1, 8, 255)
                                  .Buttons(Item::Output, 2, 2)
                                  .Padding(Item::Output, 7));
    this->Want({{1, kPage}});
    EXPECT_TRUE(this->Fill(device));
    const bool values = TypeParam::kFieldBits != 1;
    EXPECT_THAT(this->Keys(), ElementsAre(values ? L"HID_OUTPUT_1" : L"HID_OUTPUT_2"));
}

// --- one key, two records ------------------------------------------------------------------------

TYPED_TEST(CapabilityCatalogue, KeepsTheLaterOfTwoRecordsInTheDevicesOrder) {
    const ParsedDevice device(typename TestFixture::Fields()
                                  .Id(1)
                                  .Usage(Item::Input, 69)
                                  .Id(16)
                                  .Range(Item::Input, 68, 70));
    this->Want({{0, kPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->Keys(),
                UnorderedElementsAre(L"HID_INPUT_68", L"HID_INPUT_69", L"HID_INPUT_70"));
    EXPECT_EQ(this->map_[L"HID_INPUT_69"].ReportID, 16);
}

TYPED_TEST(CapabilityCatalogue, KeepsTheRecordOfThePageThatIsWantedLater) {
    const ParsedDevice device(typename TestFixture::Fields()
                                  .Usage(Item::Input, 69)
                                  .Page(kOtherPage)
                                  .Usage(Item::Input, 69));
    this->Want({{0, kPage}, {0, kOtherPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_EQ(this->map_[L"HID_INPUT_69"].UsagePage, kOtherPage);

    this->Want({{0, kOtherPage}, {0, kPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_EQ(this->map_[L"HID_INPUT_69"].UsagePage, kPage);
    EXPECT_THAT(this->Keys(), ElementsAre(L"HID_INPUT_69"));
}

}  // namespace
}  // namespace hid_test
