// Touchpads without one of the lights: the others work as usual.
#include "testing/kit/native/CompositionPathTest.h"

namespace {

using namespace kit;

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
    session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
    EXPECT_EQ(Compose(), GetParam().report);
    EXPECT_EQ(ComposeLog(), GetParam().log);
}

const std::vector<std::string> kSilent;
const std::vector<std::string> kLogged = {kNotFoundLine};
const std::vector<std::string> kBlankLogged = {kBlankLine};

INSTANTIATE_TEST_SUITE_P(
    Shown, MissingLight,
    testing::Values(
        MissingCase{
            0x20, Path::Shown,
            LightReport("microphone off 3, chat 3, share screen 3, breathing 15; all active"),
            kSilent},
        MissingCase{
            0x21, Path::Shown,
            LightReport("microphone off 3, chat 3, share screen 3, breathing 15; all active"),
            kLogged},
        MissingCase{0x22, Path::Shown,
                    LightReport("camera off 3, microphone off 3, chat 3, breathing 15; all active"),
                    kLogged},
        MissingCase{0x24, Path::Shown,
                    LightReport("camera off 3, microphone off 3, share screen 3; all active"),
                    kLogged},
        MissingCase{0x26, Path::Shown,
                    LightReport("camera off 3, chat 3, share screen 3, breathing 15; all active"),
                    kSilent},
        MissingCase{0x27, Path::Shown,
                    LightReport("camera off 3, chat 3, share screen 3, breathing 15; all active"),
                    kLogged},
        MissingCase{0xA2, Path::Shown, AllLit(), kLogged},
        MissingCase{
            0x20, Path::Lit,
            LightReport("microphone on 3, chat 3, share screen 3, breathing 15; all active"),
            kSilent},
        MissingCase{
            0x21, Path::Lit,
            LightReport(
                "camera on 3, microphone on 3, chat 3, share screen 3, breathing 15; all active"),
            kLogged},
        MissingCase{0x26, Path::Lit,
                    LightReport("camera on 3, chat 3, share screen 3, breathing 15; all active"),
                    kSilent},
        MissingCase{
            0x27, Path::Lit,
            LightReport(
                "camera on 3, microphone on 3, chat 3, share screen 3, breathing 15; all active"),
            kLogged}));

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
