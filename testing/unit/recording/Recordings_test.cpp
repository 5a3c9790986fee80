// Every recorded machine in machines/, replayed: it is rebuilt as far as the recording expects, the
// agent finds the touchpad that it found there, and a meeting has the same reports.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "testing/recording/Expectation.h"

namespace {

using recording::Json;

std::filesystem::path Folder() {
    return std::filesystem::path(VELA_SOURCE_FOLDER) / "testing/unit/recording/machines";
}

std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Folder())) {
        if (entry.path().extension() == ".json") names.push_back(entry.path().stem().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class RecordingsTest : public testing::TestWithParam<std::string> {
 protected:
    static Json Machine() { return Json::parse(std::ifstream(Folder() / (GetParam() + ".json"))); }
};

INSTANTIATE_TEST_SUITE_P(, RecordingsTest, testing::ValuesIn(Names()),
                         [](const auto& test) { return test.param; });

TEST_P(RecordingsTest, IsReplayedAsExpected) {
    EXPECT_THAT(recording::Unexpected(Machine()), testing::IsEmpty());
}

}  // namespace
