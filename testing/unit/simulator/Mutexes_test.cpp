#include "testing/unit/simulator/SimulatorTest.h"

namespace simulator_test {
namespace {

constexpr const wchar_t* kName = L"Global\\Device";

class NamedMutexes : public SimulatorTest {};

TEST_F(NamedMutexes, ExistFromTheirCreationToTheLastHandle) {
    EXPECT_EQ(OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kName), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);

    const HANDLE created = CreateMutexW(nullptr, FALSE, kName);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    const HANDLE opened = OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kName);
    ASSERT_NE(opened, nullptr);
    EXPECT_NE(opened, created);

    EXPECT_TRUE(CloseHandle(created));
    EXPECT_TRUE(machine_.MutexExists(kName));
    EXPECT_TRUE(CloseHandle(opened));
    EXPECT_FALSE(machine_.MutexExists(kName));
    EXPECT_EQ(OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kName), nullptr);
}

TEST_F(NamedMutexes, CreatedTwiceAreOne) {
    const HANDLE first = CreateMutexW(nullptr, FALSE, kName);
    const HANDLE second = CreateMutexW(nullptr, FALSE, kName);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    CloseHandle(first);
    EXPECT_TRUE(machine_.MutexExists(kName));
    CloseHandle(second);
    EXPECT_FALSE(machine_.MutexExists(kName));
}

TEST_F(NamedMutexes, HaveCaseSensitiveNames) {
    CreateMutexW(nullptr, FALSE, kName);
    EXPECT_EQ(OpenMutexW(MUTEX_ALL_ACCESS, FALSE, L"global\\device"), nullptr);
    EXPECT_EQ(OpenMutexW(MUTEX_ALL_ACCESS, FALSE, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST_F(NamedMutexes, WithoutANameAreAllDifferent) {
    CreateMutexW(nullptr, FALSE, nullptr);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    CreateMutexW(nullptr, FALSE, L"");
    CreateMutexW(nullptr, FALSE, L"");
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
}

TEST_F(NamedMutexes, OfAnotherProcessOpenAndCreateAsExisting) {
    machine_.HoldMutexElsewhere(kName, false);
    EXPECT_TRUE(machine_.MutexExists(kName));
    const HANDLE opened = OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kName);
    ASSERT_NE(opened, nullptr);
    EXPECT_NE(CreateMutexW(nullptr, FALSE, kName), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
}

TEST_F(NamedMutexes, OfAnotherUserAreDenied) {
    machine_.HoldMutexElsewhere(kName, true);
    EXPECT_EQ(OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kName), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    SetLastError(0);
    EXPECT_EQ(CreateMutexW(nullptr, FALSE, kName), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST_F(NamedMutexes, OfAnotherProcessGoWithIt) {
    machine_.HoldMutexElsewhere(kName, false);
    const HANDLE opened = OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kName);
    machine_.ReleaseMutexElsewhere(kName);
    EXPECT_TRUE(machine_.MutexExists(kName));
    CloseHandle(opened);
    EXPECT_FALSE(machine_.MutexExists(kName));

    machine_.HoldMutexElsewhere(kName, true);
    machine_.ReleaseMutexElsewhere(kName);
    EXPECT_FALSE(machine_.MutexExists(kName));
}

TEST_F(NamedMutexes, AreGoneAfterAReset) {
    const HANDLE created = CreateMutexW(nullptr, FALSE, kName);
    machine_.Reset();
    EXPECT_FALSE(machine_.MutexExists(kName));
    EXPECT_TRUE(CloseHandle(created));

    machine_.HoldMutexElsewhere(kName, true);
    machine_.Reset();
    EXPECT_NE(CreateMutexW(nullptr, FALSE, kName), nullptr);
}

TEST_F(NamedMutexes, CannotBeWaitedFor) {
    EXPECT_EQ(WaitForSingleObject(CreateMutexW(nullptr, FALSE, kName), 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(NamedMutexes, AreNotOpenedWhereTheNameIsAnEvents) {
    CreateEventW(nullptr, TRUE, FALSE, kName);
    EXPECT_EQ(OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kName), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

}  // namespace
}  // namespace simulator_test
