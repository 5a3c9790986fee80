// The verdict on an interface, and the data that was read of it.
#include "hid/Examination.h"

#include "testing/unit/hid/HidTest.h"

namespace hid_test {
namespace {

using vela::Verdict;

class ExaminationTest : public HidTest {
 protected:
    // The caller frees the preparsed data.
    vela::Examination Examine(const std::wstring& path) {
        const vela::FileHandle device = vela::OpenForExamination(path);
        vela::Examination examination = vela::Examine(query_, device);
        error_ = GetLastError();
        EXPECT_EQ(PreparsedDataInUse(), examination.preparsedData == nullptr ? 0U : 1U);
        if (examination.preparsedData != nullptr) HidD_FreePreparsedData(examination.preparsedData);
        return examination;
    }

    DWORD error_ = 0;  // the last error right after the examination
};

TEST_F(ExaminationTest, OfAMatchHoldsAllThatTheRecordNeeds) {
    const vela::Examination examination = Examine(Plug()->Path());
    EXPECT_EQ(examination.verdict, Verdict::kMatches);
    EXPECT_EQ(examination.attributes.VendorID, 0x0488);
    EXPECT_EQ(examination.caps.UsagePage, 0xFF80);
    EXPECT_NE(examination.preparsedData, nullptr);
    EXPECT_EQ(examination.valueCapsMap.size(), 11U);
    EXPECT_EQ(examination.buttonCapsMap.size(), 13U);
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

struct FailedCall {
    const char* function;
    Fault fault;
    Verdict verdict;
    DWORD error;  // 0: not specified for this verdict
};

class ExaminationWithAFault : public ExaminationTest,
                              public testing::WithParamInterface<FailedCall> {};

TEST_P(ExaminationWithAFault, EndsThere) {
    const auto device = Plug();
    machine_.FailNext(GetParam().function, GetParam().fault);
    EXPECT_EQ(Examine(device->Path()).verdict, GetParam().verdict);
    if (GetParam().error != 0) {
        EXPECT_EQ(error_, GetParam().error);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Calls, ExaminationWithAFault,
    testing::Values(FailedCall{"CreateFileW", Fault::Error(5), Verdict::kNotOpened, 5},
                    FailedCall{"HidD_GetPreparsedData", Fault::Error(1167), Verdict::kNotRead,
                               1167},
                    FailedCall{"HidD_GetAttributes", Fault::Error(1167), Verdict::kNotRead, 1167},
                    FailedCall{"HidP_GetCaps", Fault::Status(HIDP_STATUS_INVALID_PREPARSED_DATA),
                               Verdict::kNoCaps, 0},
                    FailedCall{"HidP_GetValueCaps", Fault::Result(HIDP_STATUS_INTERNAL_ERROR, 31),
                               Verdict::kNoWantedValueCap, 0},
                    FailedCall{"HidP_GetButtonCaps", Fault::Result(HIDP_STATUS_INTERNAL_ERROR, 31),
                               Verdict::kNoWantedButtonCap, 0}),
    [](const auto& test) { return test.param.function; });

struct FilterVerdict {
    const char* name;
    vela::HidDeviceFilterList filters;
    Verdict verdict;
};

// The filters are applied to vendor 0x0488, usage page 0xFF80 and usage 0x80.
class ExaminationWithFilters : public ExaminationTest,
                               public testing::WithParamInterface<FilterVerdict> {};

TEST_P(ExaminationWithFilters, ReturnsWhichPartDoesNotFit) {
    const auto device = Plug();
    query_.filters = GetParam().filters;
    const vela::Examination examination = Examine(device->Path());
    EXPECT_EQ(examination.verdict, GetParam().verdict);
    EXPECT_EQ(examination.attributes.ProductID, 0x1234);
    EXPECT_EQ(examination.caps.Usage, 0x80);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, ExaminationWithFilters,
    testing::Values(FilterVerdict{"Empty", {}, Verdict::kOtherCollection},
                    FilterVerdict{"OtherPage", {{0x0488, 0xFF81, 0x80}}, Verdict::kOtherCollection},
                    FilterVerdict{
                        "OtherUsage", {{0x0488, 0xFF80, 0x81}}, Verdict::kOtherCollection},
                    FilterVerdict{"OtherVendor", {{0x0489, 0xFF80, 0x80}}, Verdict::kOtherVendor},
                    FilterVerdict{"OtherVendorThenOtherPage",
                                  {{0x0489, 0xFF80, 0x80}, {0x0488, 0xFF81, 0x80}},
                                  Verdict::kOtherVendor},
                    FilterVerdict{"OtherVendorThenMatch",
                                  {{0x0489, 0xFF80, 0x80}, {0, 0xFF80, 0x80}},
                                  Verdict::kMatches}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace hid_test
