#include "testing/unit/simulator/SimulatorTest.h"

namespace simulator_test {
namespace {

class OpeningADevice : public SimulatorTest {};

TEST_F(OpeningADevice, GivesAHandleThatCountsAsOpenUntilItIsClosed) {
    const auto device = Plug();
    const HANDLE file = Open(*device);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_EQ(device->OpenHandles(), 1U);
    Close(file);
    EXPECT_EQ(device->OpenHandles(), 0U);
}

TEST_F(OpeningADevice, ComparesPathsWithoutCase) {
    DeviceDescription description;
    description.reportDescriptor = DescriptorWithIds();
    description.path = L"\\\\?\\HID#Vid_0488#1#{4D1E55B2-F16F-11CF-88CB-001111000030}";
    const auto device = machine_.Plug(description);
    const HANDLE file = CreateFileW(L"\\\\?\\hid#vID_0488#1#{4d1e55b2-f16f-11cf-88cb-001111000030}",
                                    0, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(device->Path(), description.path);
}

TEST_F(OpeningADevice, FailsForUnknownPathsAndForCreation) {
    const auto device = Plug();
    EXPECT_EQ(CreateFileW(L"\\\\?\\hid#other", 0, 0, nullptr, OPEN_EXISTING, 0, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(CreateFileW(device->Path().c_str(), 0, 0, nullptr, CREATE_NEW, 0, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(CreateFileW(nullptr, 0, 0, nullptr, OPEN_EXISTING, 0, nullptr), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST_F(OpeningADevice, LeavesTheLastErrorAloneWhenItSucceeds) {
    const auto device = Plug();
    SetLastError(4711);
    ASSERT_NE(Open(*device), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), 4711U);
}

TEST_F(OpeningADevice, WithoutAccessPermitsFeaturesButNoReadingOrWriting) {
    const auto device = Plug();
    const HANDLE file = Open(*device, 0);
    BYTE feature[5] = {4};
    EXPECT_TRUE(HidD_GetFeature(file, feature, sizeof feature));
    EXPECT_EQ(Read(file, MakeOperation(Bytes(5))), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Write(file, MakeOperation({2, 0, 0, 0, 0, 0})), ERROR_ACCESS_DENIED);
}

TEST_F(OpeningADevice, PermitsOnlyTheRequestedAccess) {
    const auto device = Plug();
    const HANDLE reader = Open(*device, GENERIC_READ);
    const HANDLE writer = Open(*device, GENERIC_WRITE);
    EXPECT_EQ(Write(reader, MakeOperation({2, 0, 0, 0, 0, 0})), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Read(writer, MakeOperation(Bytes(5))), ERROR_ACCESS_DENIED);
}

TEST_F(OpeningADevice, WithoutOverlappedIoIsForQueriesOnly) {
    const auto device = Plug();
    const HANDLE file =
        CreateFileW(device->Path().c_str(), kReadWrite, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD transferred = 0;
    BYTE bytes[5] = {};
    EXPECT_FALSE(ReadFile(file, bytes, sizeof bytes, &transferred, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_NOT_SUPPORTED);
    EXPECT_TRUE(CloseHandle(file));
}

struct Sharing {
    const char* name;
    DWORD firstAccess, firstShare, secondAccess, secondShare;
    bool conflict;
};

class ShareModes : public SimulatorTest, public testing::WithParamInterface<Sharing> {};

TEST_P(ShareModes, ConflictInBothDirections) {
    const Sharing& row = GetParam();
    const auto device = Plug();
    const DWORD expected = row.conflict ? ERROR_SHARING_VIOLATION : 0;
    for (const bool swapped : {false, true}) {
        SetLastError(0);
        const HANDLE first = swapped ? Open(*device, row.secondAccess, row.secondShare)
                                     : Open(*device, row.firstAccess, row.firstShare);
        ASSERT_NE(first, INVALID_HANDLE_VALUE);
        const HANDLE second = swapped ? Open(*device, row.firstAccess, row.firstShare)
                                      : Open(*device, row.secondAccess, row.secondShare);
        EXPECT_EQ(second == INVALID_HANDLE_VALUE, row.conflict);
        EXPECT_EQ(GetLastError(), expected);
        if (second != INVALID_HANDLE_VALUE) Close(second);
        Close(first);
    }
}

constexpr DWORD kRead = GENERIC_READ;
constexpr DWORD kWrite = GENERIC_WRITE;
constexpr DWORD kBoth = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD kAll = FILE_SHARE_READ | FILE_SHARE_WRITE;

INSTANTIATE_TEST_SUITE_P(
    Rows, ShareModes,
    testing::Values(
        Sharing{"ExclusiveAndShared", kBoth, 0, kBoth, kAll, true},
        Sharing{"ExclusiveReaderAndWriter", kRead, 0, kWrite, kAll, true},
        Sharing{"ExclusiveAndNoAccess", kBoth, 0, 0, kAll, false},
        Sharing{"ExclusiveAndNoAccessUnshared", kBoth, 0, 0, 0, false},
        Sharing{"BothShared", kBoth, kAll, kBoth, kAll, false},
        Sharing{"ReadersSharingReading", kRead, FILE_SHARE_READ, kRead, FILE_SHARE_READ, false},
        Sharing{"WriterAndSharedReadingOnly", kWrite, kAll, kRead, FILE_SHARE_READ, true},
        Sharing{"ReaderAndSharedWritingOnly", kRead, kAll, kWrite, FILE_SHARE_WRITE, true}),
    [](const testing::TestParamInfo<Sharing>& row) { return row.param.name; });

TEST_F(OpeningADevice, FailsWhileAnotherProcessHoldsIt) {
    const auto device = Plug();
    device->HoldElsewhere();
    EXPECT_EQ(Open(*device), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_NE(Open(*device, 0), INVALID_HANDLE_VALUE);
    device->ReleaseElsewhere();
    EXPECT_NE(Open(*device), INVALID_HANDLE_VALUE);
}

TEST_F(OpeningADevice, WorksAgainOnceTheExclusiveHandleIsClosed) {
    const auto device = Plug();
    const HANDLE exclusive = Open(*device, kReadWrite, 0);
    EXPECT_EQ(Open(*device), INVALID_HANDLE_VALUE);
    Close(exclusive);
    EXPECT_NE(Open(*device), INVALID_HANDLE_VALUE);
}

}  // namespace
}  // namespace simulator_test
