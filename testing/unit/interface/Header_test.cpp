// The binary interface in the host header: hosts that were compiled with an older header must keep
// working.
#include "include/VelaAgent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "testing/unit/interface/HeaderInC.h"

namespace {

using Function = void (*)();

template <typename Export>
Function Address(Export* function) {
    return reinterpret_cast<Function>(function);
}

std::vector<std::string> NamesInC() {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < kExportsInCCount; ++i) names.emplace_back(kExportsInC[i].name);
    return names;
}

TEST(HeaderTest, GivesCAndCppTheSameFunctions) {
#define VELA_ADDRESS(name) Address(name),
    const std::vector<Function> functions{VELA_AGENT_FOR_EACH_EXPORT(VELA_ADDRESS)};
#undef VELA_ADDRESS
    ASSERT_EQ(functions.size(), kExportsInCCount);
    for (std::size_t i = 0; i < functions.size(); ++i) {
        EXPECT_EQ(functions[i], kExportsInC[i].function) << kExportsInC[i].name;
    }
}

// Returns the lines of a file of the source tree, trimmed.
std::vector<std::string> LinesOf(const std::string& file) {
    std::ifstream stream(std::string(VELA_SOURCE_FOLDER) + "/" + file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        line.erase(0, line.find_first_not_of(" \t"));
        line.erase(line.find_last_not_of(" \t\r") + 1);
        lines.push_back(line);
    }
    return lines;
}

TEST(HeaderTest, NamesWhatTheLibraryExports) {
    std::vector<std::string> lines = LinesOf("interface/VelaAgent.def");
    const auto exports = std::find(lines.begin(), lines.end(), "EXPORTS");
    ASSERT_NE(exports, lines.end());
    EXPECT_EQ(std::vector<std::string>(exports + 1, lines.end()), NamesInC());
}

// The list that hosts, tests and stand-ins expand is the header's declarations, no more and no
// less.
TEST(HeaderTest, ListsEveryFunctionThatItDeclares) {
    static const std::regex declaration(R"((?:void|u?int32_t|VELA_BOOL) (\w+)\(.*\);)");
    std::vector<std::string> declared;
    for (const std::string& line : LinesOf("include/VelaAgent.h")) {
        std::smatch match;
        if (std::regex_match(line, match, declaration)) declared.push_back(match[1]);
    }
    EXPECT_THAT(NamesInC(), testing::UnorderedElementsAreArray(declared));
}

// The numbers are part of the binary interface: compiled hosts carry them.
static_assert(sizeof(VELA_BOOL) == 4);
static_assert(VELA_BUTTON_CAMERA == 0 && VELA_BUTTON_MICROPHONE == 1 && VELA_BUTTON_CHAT == 2 &&
              VELA_BUTTON_SHARE_SCREEN == 3);
static_assert(VELA_ACTIVE == 0 && VELA_ACTIVE_HOST_SETS_LIGHTS == 1 && VELA_DEACTIVATED == 4 &&
              VELA_SUSPENDED == 5);
static_assert(VELA_STATUS_NORMAL == 0 && VELA_STATUS_TEMPORARILY_DISABLED == 2 &&
              VELA_STATUS_DISABLED == 3 && VELA_STATUS_DEACTIVATED == 4);
static_assert(VELA_CLICK_MODE_OFF == 0 && VELA_CLICK_MODE_ON == 1);
static_assert(VELA_INIT_OPEN == 1 && VELA_INIT_NOT_FOUND == 2 && VELA_INIT_HELD_BY_OTHER == 3);

}  // namespace
