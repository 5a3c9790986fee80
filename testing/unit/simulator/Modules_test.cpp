#include "testing/unit/simulator/SimulatorTest.h"

namespace simulator_test {
namespace {

using testing::ElementsAre;

class ModulePaths : public SimulatorTest {
 protected:
    int module_ = 0;
    wchar_t text_[8] = L"???????";
};

TEST_F(ModulePaths, AreThoseOfTheTest) {
    machine_.SetModulePath(&module_, L"C:\\a");
    SetLastError(4711);
    EXPECT_EQ(GetModuleFileNameW(&module_, text_, 8), 4U);
    EXPECT_STREQ(text_, L"C:\\a");
    EXPECT_EQ(GetLastError(), 4711U);
}

TEST_F(ModulePaths, AreCutToTheBufferWithItsSizeAsResult) {
    machine_.SetModulePath(&module_, L"C:\\ab");
    EXPECT_EQ(GetModuleFileNameW(&module_, text_, 6), 5U);
    EXPECT_EQ(GetModuleFileNameW(&module_, text_, 5), 5U);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_STREQ(text_, L"C:\\a");
    SetLastError(0);
    EXPECT_EQ(GetModuleFileNameW(&module_, text_, 0), 0U);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST_F(ModulePaths, OfUnknownModulesFail) {
    EXPECT_EQ(GetModuleFileNameW(&module_, text_, 8), 0U);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
}

class DebugOutputs : public SimulatorTest {};

TEST_F(DebugOutputs, AreKept) {
    OutputDebugStringA("one");
    OutputDebugStringA("two\n");
    EXPECT_THAT(machine_.DebugOutput(), ElementsAre("one", "two\n"));
}

}  // namespace
}  // namespace simulator_test
