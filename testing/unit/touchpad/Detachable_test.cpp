// A touchpad is detachable or fixed by its product string.
#include "testing/kit/native/TouchpadTest.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::ElementsAre;

TouchpadLayout Named(const std::wstring& productString) {
    TouchpadLayout layout;
    layout.productString = productString;
    return layout;
}

class DetachableTest : public TouchpadTest {
 protected:
    std::size_t ProductStringReads() const { return machine_.CountCalls("HidD_GetProductString"); }
};

struct ProductName {
    std::wstring text;
    bool detachable;
};

class ProductNameTest : public DetachableTest, public testing::WithParamInterface<ProductName> {};

TEST_P(ProductNameTest, DecidesWhetherTheTouchpadIsDetachable) {
    Open(Named(GetParam().text));
    EXPECT_EQ(session_.IsDetachable(), GetParam().detachable);
}

INSTANTIATE_TEST_SUITE_P(
    Names, ProductNameTest,
    testing::Values(ProductName{L"Vela Virtual Touchpad", false}, ProductName{L"morlo", true},
                    ProductName{L"Vela MORLO 2", true}, ProductName{L"xMoRlOx", true},
                    ProductName{L"mor lo", false}, ProductName{L"detachable", true},
                    ProductName{L"Touchpad, DETACHABLE", true}, ProductName{L"UnDetachables", true},
                    ProductName{L"Detach able", false}, ProductName{L"detachabl", false},
                    ProductName{L"V\u00c9LA \u4f60 Detachable", true},
                    // Only A to Z are converted to lower case; other letters stay unchanged.
                    ProductName{L"\u014dorlo", false}, ProductName{L"\u014d\u014f\u0152lo", false},
                    ProductName{L"\uff2d\uff2f\uff32\uff2c\uff2f", false},
                    // The name fills the buffer and ends with the word.
                    ProductName{std::wstring(250, L'x') + L"Morlo", true}));

TEST_F(DetachableTest, LogsTheNameInLowerCase) {
    Open(Named(L"Vela [DETACHABLE] Z9"));
    session_.IsDetachable();
    EXPECT_THAT(LogOf("IsDetachable"),
                ElementsAre("INFO IsDetachable: Product string: vela [detachable] z9"));
}

TEST_F(DetachableTest, LogsEveryLetterOfTheName) {
    Open(Named(L"Caf\u00E9 Klju\u010D \u4f60"));
    session_.IsDetachable();
    EXPECT_THAT(LogOf("IsDetachable"), ElementsAre("INFO IsDetachable: Product string: "
                                                   "caf\xC3\xA9 klju\xC4\x8D \xE4\xBD\xA0"));
}

TEST_F(DetachableTest, ReadsTheNameOnce) {
    Open();
    machine_.ForgetCalls();
    EXPECT_FALSE(session_.IsDetachable());
    EXPECT_FALSE(session_.IsDetachable());
    EXPECT_THAT(machine_.CallTexts({"HidD_GetProductString"}),
                ElementsAre("HidD_GetProductString(file#3, " +
                            std::to_string(256 * sizeof(wchar_t)) + ")"));
}

TEST_F(DetachableTest, ANameThatCannotBeReadCountsAsDetachableAndIsReadAgain) {
    Open();
    machine_.ForgetCalls();
    machine_.FailNext("HidD_GetProductString", Fault::Error(31));
    EXPECT_TRUE(session_.IsDetachable());
    EXPECT_FALSE(session_.IsDetachable());
    EXPECT_EQ(ProductStringReads(), 2U);
    EXPECT_THAT(LogOf("IsDetachable"),
                ElementsAre("WARNING IsDetachable: GetProductString failed, GetLastError(31).",
                            "INFO IsDetachable: Product string: vela virtual touchpad"));
}

TEST_F(DetachableTest, ANameTooLongForTheBufferCannotBeRead) {
    Open(Named(std::wstring(300, L'x')));
    EXPECT_TRUE(session_.IsDetachable());
    EXPECT_THAT(LogOf("IsDetachable"),
                testing::Each(testing::StartsWith(
                    "WARNING IsDetachable: GetProductString failed, GetLastError(")));
}

TEST_F(DetachableTest, AnEmptyNameCountsAsDetachableAndIsReadAgain) {
    Open(Named(L""));
    machine_.ForgetCalls();
    EXPECT_TRUE(session_.IsDetachable());
    EXPECT_TRUE(session_.IsDetachable());
    EXPECT_EQ(ProductStringReads(), 2U);
    const std::string line = "INFO IsDetachable: Product string: ";
    EXPECT_THAT(LogOf("IsDetachable"), ElementsAre(line, line));
}

TEST_F(DetachableTest, ASuccessThatWritesNothingIsAnEmptyName) {
    Open();
    machine_.FailNext("HidD_GetProductString", Fault::Result(1));
    EXPECT_TRUE(session_.IsDetachable());
    EXPECT_THAT(LogOf("IsDetachable"), ElementsAre("INFO IsDetachable: Product string: "));
}

TEST_F(DetachableTest, WithoutASessionNoNameCanBeRead) {
    Plug();
    EXPECT_TRUE(session_.IsDetachable());
    EXPECT_THAT(machine_.CallTexts({"HidD_GetProductString"}),
                ElementsAre(testing::StartsWith("HidD_GetProductString(null, ")));
    EXPECT_THAT(LogOf("IsDetachable"),
                ElementsAre("WARNING IsDetachable: GetProductString failed, GetLastError(6)."));
}

TEST_F(DetachableTest, TheFirstTouchpadsNameServesForTheLifeOfTheSessionObject) {
    Open();
    EXPECT_FALSE(session_.IsDetachable());
    session_.Uninitialize();
    device_->Unplug();
    machine_.ForgetCalls();
    Open(DetachableLayout());
    EXPECT_FALSE(session_.IsDetachable());
    session_.Uninitialize();
    EXPECT_FALSE(session_.IsDetachable());
    EXPECT_EQ(ProductStringReads(), 0U);
}

}  // namespace
