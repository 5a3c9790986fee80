// Light values that cannot be set: the skipped, logged and still written ones.
#include "testing/kit/native/CompositionPathTest.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

class LedReportFaultsTest : public CompositionPathTest {};

// --- one failing call ----------------------------------------------------------------------------

struct FaultCase {
    Path path;
    std::size_t failing;  // position among the values
    bool skipsNext;
    std::vector<std::string> log;
};

void PrintTo(const FaultCase& fault, std::ostream* stream) {
    *stream << fault.path << " value " << fault.failing;
}

class FailingValue : public LedReportFaultsTest, public testing::WithParamInterface<FaultCase> {};

TEST_P(FailingValue, EndsNoMoreThanItsRow) {
    OpenOn(GetParam().path);
    Compose();
    std::vector<std::string> expected = calls_;
    if (GetParam().skipsNext) {
        expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(GetParam().failing) + 1);
    }
    Compose([this] {
        machine_.FailNext("HidP_SetUsageValue", Fault::Status(kUsageNotFound), GetParam().failing);
    });
    EXPECT_EQ(calls_, expected);
    EXPECT_EQ(ComposeLog(), GetParam().log);
}

// The values: 0x20, 0x21, 0x26, 0x27, 0x24, 0xA2, 0x22.
INSTANTIATE_TEST_SUITE_P(Shown, FailingValue,
                         testing::Values(FaultCase{Path::Shown, 0, true, {}},
                                         FaultCase{Path::Shown, 1, false, {kNotFoundLine}},
                                         FaultCase{Path::Shown, 2, true, {}},
                                         FaultCase{Path::Shown, 3, false, {kNotFoundLine}},
                                         FaultCase{Path::Shown, 4, true, {kNotFoundLine}},
                                         FaultCase{Path::Shown, 5, false, {kNotFoundLine}},
                                         FaultCase{Path::Shown, 6, false, {kNotFoundLine}},
                                         FaultCase{Path::Lit, 0, true, {}},
                                         FaultCase{Path::Lit, 1, false, {kNotFoundLine}},
                                         FaultCase{Path::Lit, 2, true, {}},
                                         FaultCase{Path::Lit, 3, false, {kNotFoundLine}}));

// The values: 0x20, 0x21, 0x26, 0x27, 0x24, 0x24, 0xA2, 0x22, 0x22.
INSTANTIATE_TEST_SUITE_P(
    Hidden, FailingValue,
    testing::Values(
        FaultCase{Path::Hidden, 0, true, {}}, FaultCase{Path::Hidden, 1, false, {kNotFoundLine}},
        FaultCase{Path::Hidden, 2, true, {}}, FaultCase{Path::Hidden, 3, false, {kNotFoundLine}},
        // The breathing is still written after the first light was skipped.
        FaultCase{Path::Hidden, 4, true, {}}, FaultCase{Path::Hidden, 5, true, {kNotFoundLine}},
        FaultCase{Path::Hidden, 6, false, {kNotFoundLine}}, FaultCase{Path::Hidden, 7, true, {}},
        FaultCase{Path::Hidden, 8, false, {kNotFoundLine}}));

// The values: 0x20, 0x21, 0x26, 0x27, 0x24, 0x24, 0x22, 0x22.
INSTANTIATE_TEST_SUITE_P(Blank, FailingValue,
                         testing::Values(FaultCase{Path::Blank, 0, true, {}},
                                         FaultCase{Path::Blank, 1, false, {kBlankLine}},
                                         FaultCase{Path::Blank, 2, true, {}},
                                         FaultCase{Path::Blank, 3, false, {kBlankLine}},
                                         FaultCase{Path::Blank, 4, true, {}},
                                         FaultCase{Path::Blank, 5, false, {kBlankLine}},
                                         FaultCase{Path::Blank, 6, true, {}},
                                         FaultCase{Path::Blank, 7, false, {kBlankLine}}));

// --- all calls failing ---------------------------------------------------------------------------

TEST_F(LedReportFaultsTest, WithNoLightAtAllTheActiveUsagesAreStillWritten) {
    OpenOn(Path::Shown);
    EXPECT_EQ(Compose([this] {
                  machine_.FailAlways("HidP_SetUsageValue", Fault::Status(kUsageNotFound));
              }),
              LightReport("dark; all active"));
    EXPECT_THAT(calls_,
                ElementsAre(SetValueCall(0x20, 0), SetValueCall(0x26, 0), SetValueCall(0x24, 3),
                            SetValueCall(0x22, 3), SetCall({0x1, 0x4, 0x3, 0x2})));
    EXPECT_THAT(ComposeLog(), ElementsAre(kNotFoundLine, kNotFoundLine));
}

TEST_F(LedReportFaultsTest, WithNoLightAtAllHiddenButtonsFailSilentlyButForTheBreathing) {
    OpenOn(Path::Hidden);
    Compose([this] { machine_.FailAlways("HidP_SetUsageValue", Fault::Status(kUsageNotFound)); });
    EXPECT_THAT(std::vector<std::string>(calls_.begin(), calls_.begin() + 5),
                ElementsAre(SetValueCall(0x20, 0), SetValueCall(0x26, 0), SetValueCall(0x24, 0),
                            SetValueCall(0xa2, 0), SetValueCall(0x22, 0)));
    EXPECT_THAT(ComposeLog(), ElementsAre(kNotFoundLine));
}

TEST_F(LedReportFaultsTest, WithNoLightAtAllABlankReportFailsSilently) {
    OpenOn(Path::Blank);
    Compose([this] { machine_.FailAlways("HidP_SetUsageValue", Fault::Status(kUsageNotFound)); });
    EXPECT_THAT(std::vector<std::string>(calls_.begin(), calls_.begin() + 4),
                ElementsAre(SetValueCall(0x20, 0), SetValueCall(0x26, 0), SetValueCall(0x24, 0),
                            SetValueCall(0x22, 0)));
    EXPECT_THAT(ComposeLog(), IsEmpty());
}

TEST_F(LedReportFaultsTest, AWarningIsAFailureAsWell) {
    OpenOn(Path::Shown);
    Compose([this] {
        machine_.FailNext("HidP_SetUsageValue",
                          Fault::Status(static_cast<std::int32_t>(0x80110001)), 6);
    });
    EXPECT_THAT(ComposeLog(), ElementsAre(kValueFailed + "-2146369535"));
}

}  // namespace
