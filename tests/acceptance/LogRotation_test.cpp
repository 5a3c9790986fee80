// The size limit of the agent's log file, and its one backup.
#include "tests/acceptance/LogFileTest.h"

namespace acceptance {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

class LogRotationTest : public LogFileTest {};

TEST_F(LogRotationTest, AFileOfExactlyFiveMebibytesIsStillContinued) {
    Write(folder_.File(), std::string(kLogSizeLimit, 'x'));
    LogOneLine();
    // The line made it too big for the next one.
    const std::string backup = Read(Backup());
    EXPECT_GT(backup.size(), kLogSizeLimit);
    EXPECT_THAT(backup.substr(kLogSizeLimit), EndsWith(std::string(kLine) + "\r\n"));
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLastLine));
}

TEST_F(LogRotationTest, AFileOfOneByteMoreBecomesTheBackupInPlaceOfTheOldOne) {
    const std::string before(kLogSizeLimit + 1, 'x');
    Write(folder_.File(), before);
    Write(Backup(), "an older backup");
    LogOneLine();
    EXPECT_TRUE(Read(Backup()) == before);
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLastLine));
}

TEST_F(LogRotationTest, AnOldBackupStaysWhileThereIsRoom) {
    Write(Backup(), "an older backup");
    LogOneLine();
    EXPECT_EQ(Read(Backup()), "an older backup");
}

}  // namespace
}  // namespace acceptance
