// Touchpads without one of the lights: the others are as they should be.
#include "testing/kit/CompositionPathTest.h"

namespace {

using test_support::BlankReport;
using test_support::Bytes;
using test_support::CompositionPathTest;
using test_support::kBlankLine;
using test_support::kNotFoundLine;
using test_support::LightReport;
using test_support::Path;
using test_support::TouchpadLayout;

struct MissingCase {
    std::uint16_t usage;
    Path path;
    Bytes report;
    std::vector<std::string> log;
};

void PrintTo(const MissingCase& missing, std::ostream* stream) {
    *stream << missing.path << " without " << std::hex << missing.usage;
}

class MissingLight : public CompositionPathTest, public testing::WithParamInterface<MissingCase> {};

TEST_P(MissingLight, LeavesTheOtherLightsAsTheyShouldBe) {
    TouchpadLayout layout;
    layout.missingLightUsages = {GetParam().usage};
    OpenOn(GetParam().path, layout);
    session_.SetButtonBreathing(2, true);
    EXPECT_EQ(Compose(), GetParam().report);
    EXPECT_EQ(ComposeLog(), GetParam().log);
}

const std::vector<std::string> kSilent;
const std::vector<std::string> kLogged = {kNotFoundLine};
const std::vector<std::string> kBlankLogged = {kBlankLine};

INSTANTIATE_TEST_SUITE_P(
    Shown, MissingLight,
    testing::Values(
        MissingCase{0x20, Path::Shown, LightReport({0, 0, 3, 3, 0, 3, 15}, 0x0F), kSilent},
        MissingCase{0x21, Path::Shown, LightReport({0, 0, 3, 3, 0, 3, 15}, 0x0F), kLogged},
        MissingCase{0x22, Path::Shown, LightReport({0, 3, 0, 3, 0, 3, 15}, 0x0F), kLogged},
        MissingCase{0x24, Path::Shown, LightReport({0, 3, 3, 0, 0, 3, 0}, 0x0F), kLogged},
        MissingCase{0x26, Path::Shown, LightReport({0, 3, 3, 3, 0, 0, 15}, 0x0F), kSilent},
        MissingCase{0x27, Path::Shown, LightReport({0, 3, 3, 3, 0, 0, 15}, 0x0F), kLogged},
        MissingCase{0xA2, Path::Shown, LightReport({0, 3, 3, 3, 0, 3, 0}, 0x0F), kLogged},
        MissingCase{0x20, Path::Lit, LightReport({0, 0, 3, 3, 3, 0, 15}, 0x0F), kSilent},
        MissingCase{0x21, Path::Lit, LightReport({3, 0, 3, 3, 3, 0, 15}, 0x0F), kLogged},
        MissingCase{0x26, Path::Lit, LightReport({3, 0, 3, 3, 0, 0, 15}, 0x0F), kSilent},
        MissingCase{0x27, Path::Lit, LightReport({3, 0, 3, 3, 3, 0, 15}, 0x0F), kLogged}));

INSTANTIATE_TEST_SUITE_P(Hidden, MissingLight,
                         testing::Values(MissingCase{0x20, Path::Hidden, BlankReport(), kSilent},
                                         MissingCase{0x21, Path::Hidden, BlankReport(), kLogged},
                                         MissingCase{0x22, Path::Hidden, BlankReport(), kSilent},
                                         MissingCase{0x24, Path::Hidden, BlankReport(), kSilent},
                                         MissingCase{0x26, Path::Hidden, BlankReport(), kSilent},
                                         MissingCase{0x27, Path::Hidden, BlankReport(), kLogged},
                                         MissingCase{0xA2, Path::Hidden, BlankReport(), kLogged}));

INSTANTIATE_TEST_SUITE_P(
    Blank, MissingLight,
    testing::Values(MissingCase{0x20, Path::Blank, BlankReport(), kSilent},
                    MissingCase{0x21, Path::Blank, BlankReport(), kBlankLogged},
                    MissingCase{0x22, Path::Blank, BlankReport(), kSilent},
                    MissingCase{0x24, Path::Blank, BlankReport(), kSilent},
                    MissingCase{0x26, Path::Blank, BlankReport(), kSilent},
                    MissingCase{0x27, Path::Blank, BlankReport(), kBlankLogged},
                    MissingCase{0xA2, Path::Blank, BlankReport(), kSilent}));

}  // namespace
