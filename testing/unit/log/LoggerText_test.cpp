// The formatting of messages from the caller to the file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "log/ILog.h"
#include "testing/kit/native/AgentLog.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;
using vela::kLogInfo;

class LoggerTextTest : public testing::Test {
 protected:
    vela::ILog& logger_ = *vela::GetLogger();
};

// Short and long texts are formatted by different code.
TEST_F(LoggerTextTest, FormatsTextsOfEveryLength) {
    AgentLog log;
    std::vector<std::string> expected;
    for (std::size_t length = 1; length <= 600; ++length) {
        const std::string text(length - 1, static_cast<char>('a' + length % 26));
        logger_.Log(kLogInfo, "f", "%s%d", text.c_str(), 7);
        expected.push_back("INFO f: " + text + "7");
    }
    EXPECT_EQ(log.Texts(), expected);
}

TEST_F(LoggerTextTest, DropsAnEmptyMessage) {
    AgentLog log;
    logger_.Log(kLogInfo, "f", "%s", "");
    EXPECT_THAT(log.Texts(), IsEmpty());
}

// The C locale cannot represent this character.
TEST_F(LoggerTextTest, DropsWhatCannotBeFormatted) {
    AgentLog log;
    const wchar_t letters[] = L"\u4f60";
    logger_.Log(kLogInfo, "f", "%ls", letters);
    logger_.Log(kLogInfo, "f", "next");
    EXPECT_THAT(log.Texts(), ElementsAre("INFO f: next"));
}

TEST_F(LoggerTextTest, WritesMessageBytesUnchanged) {
    AgentLog log;
    logger_.Log(kLogInfo, "f", "%s", "\xC3\xA9\xFF");
    EXPECT_THAT(log.Texts(), ElementsAre("INFO f: \xC3\xA9\xFF"));
}

TEST_F(LoggerTextTest, EndsLinesWithinAMessageLikeItsOwn) {
    AgentLog log;
    logger_.Log(kLogInfo, "f", "%s", "one\ntwo\r\n");
    log.Finish();
    EXPECT_THAT(FileText(log.File()), testing::HasSubstr("} one\r\ntwo\r\r\n\r\n["));
}

TEST_F(LoggerTextTest, HasNoLimitOnTheLengthOfAMessage) {
    AgentLog log;
    const std::string longText(100000, 'a');
    logger_.Log(kLogInfo, "f", "%s", longText.c_str());
    log.Finish();
    EXPECT_THAT(FileText(log.File()), testing::HasSubstr("} " + longText + "\r\n"));
}

}  // namespace
