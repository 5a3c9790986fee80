#include "tests/simulator/SimulatorTest.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace simulator_test {
namespace {

class RealFiles : public SimulatorTest {
 protected:
    RealFiles() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "simulator-test-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
    }
    ~RealFiles() override { std::filesystem::remove_all(folder_); }

    std::wstring Put(const std::string& name) const {
        std::ofstream(folder_ / name) << name;
        return (folder_ / name).wstring();
    }
    bool Exists(const std::string& name) const { return std::filesystem::exists(folder_ / name); }

    std::filesystem::path folder_;
};

TEST_F(RealFiles, AreDeleted) {
    const std::wstring path = Put("a\\b.log");
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    EXPECT_FALSE(Exists("a\\b.log"));
    EXPECT_FALSE(DeleteFileW(path.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(DeleteFileW(folder_.wstring().c_str()));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST_F(RealFiles, AreMovedButNotOverOthers) {
    const std::wstring from = Put("from");
    const std::wstring to = Put("to");
    EXPECT_FALSE(MoveFileW(from.c_str(), to.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_TRUE(Exists("from"));
    EXPECT_TRUE(MoveFileW(from.c_str(), (folder_ / "new").wstring().c_str()));
    EXPECT_TRUE(Exists("new"));
    EXPECT_FALSE(Exists("from"));
    EXPECT_FALSE(MoveFileW(from.c_str(), (folder_ / "other").wstring().c_str()));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(RealFiles, HaveNamesInUtf8) {
    const std::wstring path = Put("a");
    const std::wstring accented = folder_.wstring() + L"/\u00E9\u4E2D";
    EXPECT_TRUE(MoveFileW(path.c_str(), accented.c_str()));
    EXPECT_TRUE(Exists("\xC3\xA9\xE4\xB8\xAD"));
}

TEST_F(RealFiles, BelowAFileAreNotFound) {
    const std::wstring path = Put("a") + L"/b";
    EXPECT_FALSE(DeleteFileW(path.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

}  // namespace
}  // namespace simulator_test
