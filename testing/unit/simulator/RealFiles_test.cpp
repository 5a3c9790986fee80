#include "testing/kit/TemporaryFolder.h"
#include "testing/unit/simulator/SimulatorTest.h"

#include <filesystem>
#include <fstream>

namespace simulator_test {
namespace {

class RealFiles : public SimulatorTest {
 protected:
    std::wstring Put(const std::string& name) const {
        std::ofstream(folder_ / name) << name;
        return (folder_ / name).wstring();
    }
    static HANDLE OpenToAppend(const std::wstring& path, DWORD disposition) {
        return CreateFileW(path.c_str(), FILE_APPEND_DATA, kShareAll, nullptr, disposition,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    }
    bool Exists(const std::string& name) const { return std::filesystem::exists(folder_ / name); }

    const kit::TemporaryFolder temporary_;
    const std::filesystem::path& folder_ = temporary_.Path();
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

TEST_F(RealFiles, HaveASize) {
    const std::wstring path = Put("twelve bytes");
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ASSERT_TRUE(GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(data.dwFileAttributes, FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(data.nFileSizeHigh, 0U);
    EXPECT_EQ(data.nFileSizeLow, 12U);
    std::filesystem::resize_file(path, 0x500000007);
    ASSERT_TRUE(GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(data.nFileSizeHigh, 5U);
    EXPECT_EQ(data.nFileSizeLow, 7U);
}

TEST_F(RealFiles, AndFoldersHaveAttributes) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ASSERT_TRUE(GetFileAttributesExW(folder_.wstring().c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(data.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(data.nFileSizeLow, 0U);
    EXPECT_FALSE(
        GetFileAttributesExW((folder_ / "a").wstring().c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(GetFileAttributesExW(folder_.wstring().c_str(), GetFileExMaxInfoLevel, &data));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST_F(RealFiles, AreOpenedForAppendingAndMadeWhereNeeded) {
    const std::wstring path = (folder_ / "new").wstring();
    for (const DWORD error : {ERROR_SUCCESS, ERROR_ALREADY_EXISTS}) {
        const HANDLE file = OpenToAppend(path, OPEN_ALWAYS);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        EXPECT_EQ(GetLastError(), error);
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(file, "a\n", 2, &written, nullptr));
        EXPECT_EQ(written, 2U);
        EXPECT_EQ(machine_.OpenRealFiles(), 1U);
        EXPECT_TRUE(CloseHandle(file));
        EXPECT_EQ(machine_.OpenRealFiles(), 0U);
        EXPECT_FALSE(WriteFile(file, "a", 1, &written, nullptr));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
    std::ifstream stream(folder_ / "new", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), "a\na\n");
}

TEST_F(RealFiles, ThatCannotBeOpenedSetTheLastError) {
    EXPECT_EQ(OpenToAppend((folder_ / "a").wstring(), OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(OpenToAppend((folder_ / "a/b").wstring(), OPEN_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(OpenToAppend(folder_.wstring(), OPEN_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(OpenToAppend(Put("b"), TRUNCATE_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST_F(RealFiles, OnAFullDiskTakeNothing) {
    const HANDLE file = OpenToAppend(L"/dev/full", OPEN_EXISTING);
    DWORD written = 1;
    EXPECT_FALSE(WriteFile(file, "a", 1, &written, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_DISK_FULL);
    EXPECT_EQ(written, 0U);
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(RealFiles, AreNeitherRecordedNorFailedNorListedUnlessATestRequestsIt) {
    for (const char* const function : {"CreateFileW", "WriteFile", "CloseHandle"}) {
        machine_.FailAlways(function, Fault::Error(31));
    }
    const HANDLE file = OpenToAppend(Put("a"), OPEN_ALWAYS);
    EXPECT_TRUE(WriteFile(file, "a", 1, nullptr, nullptr));
    EXPECT_TRUE(machine_.OpenHandles().empty());
    EXPECT_TRUE(machine_.Calls().empty());

    machine_.RecordFileCalls(true);
    EXPECT_FALSE(WriteFile(file, "a", 1, nullptr, nullptr));
    EXPECT_FALSE(CloseHandle(file));
    EXPECT_EQ(OpenToAppend(Put("a"), OPEN_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(machine_.Calls().size(), 3U);
    machine_.StopFailing("CloseHandle");
    EXPECT_TRUE(CloseHandle(file));
    // Real files do not use up handle numbers: the device's is the first.
    machine_.StopFailing("CreateFileW");
    const HANDLE device = Open(*Plug());
    EXPECT_THAT(machine_.OpenHandles(), testing::ElementsAre("file#1"));
    Close(device);
}

TEST_F(RealFiles, BelowAFileAreNotFound) {
    const std::wstring path = Put("a") + L"/b";
    EXPECT_FALSE(DeleteFileW(path.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

}  // namespace
}  // namespace simulator_test
