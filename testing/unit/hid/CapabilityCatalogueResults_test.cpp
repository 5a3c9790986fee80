// Filling the catalogue: when it succeeds, its platform calls, and the log lines of a failure.
#include "testing/unit/hid/CatalogueTest.h"

namespace hid_test {
namespace {

using testing::UnorderedElementsAre;

template <typename Kind>
class FillingTheCatalogue : public CatalogueTest<Kind> {
 protected:
    using Fields = typename CatalogueTest<Kind>::Fields;

    // Has outputs 1 and 2 and feature 3, no input.
    static ReportDescriptorBuilder SomeFields() {
        return Fields().Usage(Item::Output, 1).Usage(Item::Output, 2).Usage(Item::Feature, 3);
    }
    static ReportDescriptorBuilder NoFields() { return Application(); }
};

TYPED_TEST_SUITE(FillingTheCatalogue, Kinds, KindName);

TYPED_TEST(FillingTheCatalogue, RequestsAllCapabilitiesOfTheWantedTypesThatHaveAny) {
    const ParsedDevice device(this->SomeFields());
    this->Want({{2, kPage}, {0, kPage}, {1, kPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->machine_.CallTexts(),
                ElementsAre(this->ListCall("feature, 1"), this->ListCall("output, 2")));
    EXPECT_THAT(this->log_.Texts(), IsEmpty());
}

TYPED_TEST(FillingTheCatalogue, RequestsTheListOnceForEachWantedPage) {
    const ParsedDevice device(this->SomeFields());
    this->Want({{1, kOtherPage}, {1, kPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->machine_.CallTexts(),
                ElementsAre(this->ListCall("output, 2"), this->ListCall("output, 2")));
}

TYPED_TEST(FillingTheCatalogue, NeedsNoMoreThanOneMatch) {
    const ParsedDevice device(this->SomeFields());
    this->Want({{0, kPage}, {1, kOtherPage}, {2, kPage}, {2, kOtherPage}});
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->Keys(), ElementsAre(L"HID_FEATURE_3"));
    EXPECT_THAT(this->log_.Texts(), IsEmpty());
}

TYPED_TEST(FillingTheCatalogue, FailsWithoutAMatchAndLeavesAnEmptyMap) {
    const ParsedDevice device(this->SomeFields());
    this->map_[L"HID_INPUT_7"] = {};
    this->Want({{0, kPage}, {1, kOtherPage}, {2, kOtherPage}});
    EXPECT_FALSE(this->Fill(device));
    EXPECT_THAT(this->Keys(), IsEmpty());
    EXPECT_THAT(this->log_.Texts(), ElementsAre(this->NoMatchLine()));
}

TYPED_TEST(FillingTheCatalogue, FailsForADeviceWithoutCapabilities) {
    const ParsedDevice device(this->NoFields());
    this->Want({{0, kPage}, {1, kPage}, {2, kPage}});
    EXPECT_FALSE(this->Fill(device));
    EXPECT_THAT(this->machine_.Calls(), IsEmpty());
    EXPECT_THAT(this->log_.Texts(), ElementsAre(this->NoMatchLine()));
}

TYPED_TEST(FillingTheCatalogue, SucceedsAtOnceWhenNothingIsWanted) {
    this->Want({});
    EXPECT_TRUE(this->Fill(ParsedDevice(this->NoFields())));
    EXPECT_TRUE(this->Fill(ParsedDevice(this->SomeFields())));
    EXPECT_THAT(this->Keys(), IsEmpty());
    EXPECT_THAT(this->machine_.Calls(), IsEmpty());
    EXPECT_THAT(this->log_.Texts(), IsEmpty());
}

TYPED_TEST(FillingTheCatalogue, FailsSilentlyWithoutAQuery) {
    const ParsedDevice device(this->SomeFields());
    const HIDP_CAPS caps = device.Caps();
    this->map_[L"HID_INPUT_7"] = {};
    this->machine_.ForgetCalls();
    EXPECT_FALSE(TypeParam::kFill(nullptr, caps, device.Preparsed(), this->map_));
    EXPECT_THAT(this->Keys(), ElementsAre(L"HID_INPUT_7"));
    EXPECT_THAT(this->machine_.Calls(), IsEmpty());
    EXPECT_THAT(this->log_.Texts(), IsEmpty());
}

TYPED_TEST(FillingTheCatalogue, QueriesTheSessionOnceForItsOwnPagesOnly) {
    this->Fill(ParsedDevice(this->SomeFields()));
    const std::string pages = TypeParam::kFieldBits != 1 ? "value pages" : "button pages";
    EXPECT_THAT(this->query_.Questions(), ElementsAre(pages));
}

// --- the platform's refusals ---------------------------------------------------------------------

TYPED_TEST(FillingTheCatalogue, StopsWhereThePlatformRefusesAndKeepsWhatItHas) {
    const ParsedDevice device(this->SomeFields());
    this->Want({{2, kPage}, {1, kPage}, {2, kOtherPage}});
    this->machine_.FailNext(TypeParam::kCall, Fault::Result(HIDP_STATUS_INTERNAL_ERROR, 31), 1);
    EXPECT_FALSE(this->Fill(device));
    EXPECT_THAT(this->Keys(), ElementsAre(L"HID_FEATURE_3"));
    EXPECT_THAT(this->machine_.CallTexts(),
                ElementsAre(this->ListCall("feature, 1"), this->ListCall("output, 2")));
    EXPECT_THAT(this->log_.Texts(), ElementsAre(this->CallFailedLine(31)));
}

TYPED_TEST(FillingTheCatalogue, TakesEveryNegativeStatusForARefusal) {
    const ParsedDevice device(this->SomeFields());
    this->Want({{1, kPage}});
    this->machine_.FailNext(TypeParam::kCall, Fault::Result(HIDP_STATUS_NULL, 0xE0000203));
    EXPECT_FALSE(this->Fill(device));
    EXPECT_THAT(this->log_.Texts(), ElementsAre(this->CallFailedLine(-536870397)));
}

// The calls return a status and set no last error; the line logs whatever the thread had.
TYPED_TEST(FillingTheCatalogue, LogsTheLastErrorThatTheStatusLeftAlone) {
    const ParsedDevice device(this->SomeFields());
    HIDP_CAPS caps = device.Caps();
    caps.*TypeParam::kOutputCount = 1;  // one less than there are
    this->Want({{1, kPage}});
    SetLastError(77);
    EXPECT_FALSE(this->Fill(device, caps));
    EXPECT_THAT(this->machine_.CallTexts(), ElementsAre(this->ListCall("output, 1")));
    EXPECT_THAT(this->log_.Texts(), ElementsAre(this->CallFailedLine(77)));
}

TYPED_TEST(FillingTheCatalogue, ReadsOnlyTheRecordsThatWereReturned) {
    const ParsedDevice device(this->SomeFields());
    HIDP_CAPS caps = device.Caps();
    caps.*TypeParam::kOutputCount = 5;
    // The page of a record that the platform did not fill.
    this->Want({{1, 0}});
    EXPECT_FALSE(this->Fill(device, caps));
    this->Want({{1, kPage}});
    EXPECT_TRUE(this->Fill(device, caps));
    EXPECT_THAT(this->Keys(), UnorderedElementsAre(L"HID_OUTPUT_1", L"HID_OUTPUT_2"));
    EXPECT_THAT(this->log_.Texts(), ElementsAre(this->NoMatchLine()));
}

// A report type without a count is queried with length 0; the platform rejects such a type.
TYPED_TEST(FillingTheCatalogue, LetsThePlatformJudgeAnUnknownReportType) {
    const ParsedDevice device(this->SomeFields());
    this->Want({{1, kPage}, {3, kPage}, {2, kPage}});
    SetLastError(0);
    EXPECT_FALSE(this->Fill(device));
    EXPECT_THAT(this->Keys(), UnorderedElementsAre(L"HID_OUTPUT_1", L"HID_OUTPUT_2"));
    EXPECT_THAT(this->machine_.CallTexts(),
                ElementsAre(this->ListCall("output, 2"), this->ListCall("3, 0")));
    EXPECT_THAT(this->log_.Texts(), ElementsAre(this->CallFailedLine(0)));
}

TYPED_TEST(FillingTheCatalogue, GoesOnAfterAnUnknownReportTypeThatThePlatformAccepts) {
    const ParsedDevice device(this->SomeFields());
    this->Want({{0xFFFFFFFF, kPage}, {2, kPage}});
    this->machine_.FailNext(TypeParam::kCall, Fault::Status(HIDP_STATUS_SUCCESS));
    EXPECT_TRUE(this->Fill(device));
    EXPECT_THAT(this->Keys(), ElementsAre(L"HID_FEATURE_3"));
    EXPECT_THAT(this->machine_.CallTexts(),
                ElementsAre(this->ListCall("4294967295, 0"), this->ListCall("feature, 1")));
    EXPECT_THAT(this->log_.Texts(), IsEmpty());
}

}  // namespace
}  // namespace hid_test
