// IsVelaPresent and IsDetachable.
#include <optional>

#include "testing/acceptance/DetachableTouchpad.h"
#include "testing/acceptance/FurtherDevice.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"

namespace acceptance {
namespace {

using testing::Contains;
using testing::StartsWith;

class PresenceTest : public TouchpadAcceptanceTest {
 protected:
    bool WaitForOtherOpens(std::uint32_t count) {
        return Touchpad().Device().WaitForState(
            [count](const VirtualHidState& state) { return state.otherOpens == count; }, kPatience);
    }
};

TEST_F(PresenceTest, WithoutASessionItFollowsPluggingAndUnplugging) {
    for (const TouchpadLayout& layout : {TouchpadLayout{}, DetachableTouchpad()}) {
        EXPECT_EQ(agent_.IsVelaPresent(), 0);
        Plug(layout);
        EXPECT_EQ(agent_.IsVelaPresent(), 1);
        Unplug();
        EXPECT_EQ(agent_.IsVelaPresent(), 0);
    }
}

TEST_F(PresenceTest, TheQueryOpensNothingForDataAndLeavesNothingOpen) {
    Plug();
    for (int i = 0; i < 10; ++i) EXPECT_EQ(agent_.IsVelaPresent(), 1);
    EXPECT_TRUE(WaitForOtherOpens(0));
    EXPECT_EQ(Touchpad().Device().Opens(), 0U);
    EXPECT_EQ(Touchpad().Device().LastSequence(), 0U);
}

// Only the session's own touchpad counts.
TEST_F(PresenceTest, AnotherTouchpadIsNoneWhileASessionIsOpen) {
    FurtherDevice other(L"zweites");
    Plug(DetachableTouchpad());
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.IsDetachable(), 1);
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    Unplug();
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
}

TEST_F(PresenceTest, ATouchpadThatCameBackIsNoneForTheOldSession) {
    Plug(DetachableTouchpad());
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.IsDetachable(), 1);
    Unplug();
    Plug(DetachableTouchpad());
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
}

// --- product strings -----------------------------------------------------------------------------

struct Product {
    const char* name;
    std::wstring text;
    bool isDetachable;
    std::string logged;
};

void PrintTo(const Product& product, std::ostream* stream) { *stream << product.name; }

class ProductTest : public PresenceTest, public testing::WithParamInterface<Product> {
 protected:
    static TouchpadLayout Layout() {
        TouchpadLayout layout;
        layout.productString = GetParam().text;
        return layout;
    }
    // Returns the product string as the log has it.
    std::optional<std::string> ProductLine() const {
        const std::string start = "{INFO @ IsDetachable} Product string: ";
        for (const std::string& line : log_.Lines()) {
            if (line.rfind(start, 0) == 0) return line.substr(start.size());
        }
        return std::nullopt;
    }
};

INSTANTIATE_TEST_SUITE_P(
    , ProductTest,
    testing::Values(Product{"Plain", L"Touchpad", false, "touchpad"},
                    Product{"Detachable", L"Vela Detachable Touchpad", true,
                            "vela detachable touchpad"},
                    Product{"Capitals", L"DETACHABLE", true, "detachable"},
                    Product{"Family", L"Morlo 3", true, "morlo 3"},
                    Product{"WithinAWord", L"xMORLOx", true, "xmorlox"},
                    Product{"AtTheEndOfALongName", std::wstring(80, L'x') + L" Detachable", true,
                            std::string(80, 'x') + " detachable"},
                    Product{"Parted", L"Detach-able Mor lo", false, "detach-able mor lo"},
                    Product{"CutShort", L"Detachabl Morl", false, "detachabl morl"},
                    // Only A to Z are converted to lower case.
                    Product{"ForeignLetters", L"M\u00D6RLO Gr\u00F6\u00DFe", false,
                            "m\xC3\x96rlo gr\xC3\xB6\xC3\x9F"
                            "e"},
                    Product{"ForeignLettersBesideIt", L"\u00C4\u89C6 Morlo", true,
                            "\xC3\x84\xE8\xA7\x86 morlo"},
                    // An empty string counts like one that cannot be read.
                    Product{"Empty", L"", true, ""}),
    [](const auto& test) { return test.param.name; });

TEST_P(ProductTest, DecidesWhetherAnOpenSessionNoticesTheUnplugging) {
    Plug(Layout());
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.IsDetachable(), GetParam().isDetachable ? 1 : 0);
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    Unplug();
    EXPECT_EQ(agent_.IsDetachable(), GetParam().isDetachable ? 1 : 0);
    EXPECT_EQ(agent_.IsVelaPresent(), GetParam().isDetachable ? 0 : 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    agent_.UnInitLogger();
    EXPECT_EQ(ProductLine(), GetParam().logged);
}

class DetachableTest : public TouchpadAcceptanceTest {};

TEST_F(DetachableTest, WithoutASessionNothingCanBeQueried) {
    Plug();
    EXPECT_EQ(agent_.IsDetachable(), 1);
    EXPECT_EQ(agent_.IsDetachable(), 1);
    agent_.UnInitLogger();
    EXPECT_THAT(log_.Lines(),
                testing::ElementsAre(
                    StartsWith("{WARNING @ IsDetachable} GetProductString failed, GetLastError("),
                    StartsWith("{WARNING @ IsDetachable} GetProductString failed, GetLastError("),
                    "{INFO @ UnInitialize} Logger::UnInitialize"));
}

TEST_F(DetachableTest, TheNameIsReadOnceAndKeptForLaterTouchpads) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.IsDetachable(), 0);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.IsDetachable(), 0);
    Unplug();
    Plug(DetachableTouchpad());
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.IsDetachable(), 0);
    EXPECT_EQ(agent_.UnInit(), 1);
    agent_.UnInitLogger();
    EXPECT_EQ(log_.CountLines("{INFO @ IsDetachable} Product string: vela virtual touchpad"), 1U);
    EXPECT_THAT(log_.Lines(), testing::Not(Contains("{INFO @ IsDetachable} Product string: vela "
                                                    "detachable touchpad")));
}

}  // namespace
}  // namespace acceptance
