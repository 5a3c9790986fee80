// The owner of a file handle.
#include "platform/FileHandle.h"

#include "testing/unit/hid/HidTest.h"

namespace hid_test {
namespace {

using vela::FileHandle;

class FileHandleTest : public HidTest {
 protected:
    HANDLE Open() {
        return CreateFileW(device_->Path().c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                           OPEN_EXISTING, 0, nullptr);
    }

    std::shared_ptr<Device> device_ = Plug();
};

TEST_F(FileHandleTest, ClosesItsHandleOnce) {
    {
        const HANDLE handle = Open();
        const FileHandle owner(handle);
        EXPECT_TRUE(owner.IsValid());
        EXPECT_EQ(owner.Get(), handle);
        EXPECT_EQ(device_->OpenHandles(), 1U);
    }
    EXPECT_EQ(device_->OpenHandles(), 0U);
    EXPECT_THAT(machine_.CallTexts({"CloseHandle"}), ElementsAre("CloseHandle(file#1)"));
}

TEST_F(FileHandleTest, LeavesTheInvalidHandleAlone) {
    {
        const FileHandle owner(INVALID_HANDLE_VALUE);
        EXPECT_FALSE(owner.IsValid());
        EXPECT_EQ(owner.Get(), INVALID_HANDLE_VALUE);
    }
    EXPECT_THAT(machine_.Calls(), IsEmpty());
}

TEST_F(FileHandleTest, KeepsTheLastErrorWhateverClosingDoesToIt) {
    const HANDLE handle = Open();
    machine_.FailNext("CloseHandle", Fault::Error(ERROR_INVALID_HANDLE));
    SetLastError(ERROR_SHARING_VIOLATION);
    { const FileHandle owner(handle); }
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    CloseHandle(handle);
}

}  // namespace
}  // namespace hid_test
