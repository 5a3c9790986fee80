#include "testing/unit/simulator/SimulatorTest.h"

#include <setupapi.h>

#include <cstring>

namespace simulator_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EnumeratingInterfaces : public SimulatorTest {
 protected:
    EnumeratingInterfaces() { HidD_GetHidGuid(&guid_); }
    ~EnumeratingInterfaces() override {
        if (list_ != nullptr) SetupDiDestroyDeviceInfoList(list_);
    }

    HDEVINFO List(DWORD flags = DIGCF_PRESENT | DIGCF_DEVICEINTERFACE) {
        return list_ = SetupDiGetClassDevsW(&guid_, nullptr, nullptr, flags);
    }
    bool Enumerate(DWORD index) {
        return SetupDiEnumDeviceInterfaces(list_, nullptr, &guid_, index, &interface_) == TRUE;
    }
    std::wstring PathOfInterface() {
        DWORD size = 0;
        SetupDiGetDeviceInterfaceDetailW(list_, &interface_, nullptr, 0, &size, nullptr);
        buffer_.assign(size, 0);
        Detail()->cbSize = sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W);
        EXPECT_TRUE(
            SetupDiGetDeviceInterfaceDetailW(list_, &interface_, Detail(), size, nullptr, nullptr));
        return Detail()->DevicePath;
    }
    SP_DEVICE_INTERFACE_DETAIL_DATA_W* Detail() {
        return reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(buffer_.data());
    }
    std::vector<std::wstring> Paths(DWORD flags = DIGCF_PRESENT | DIGCF_DEVICEINTERFACE) {
        std::vector<std::wstring> paths;
        const HDEVINFO list = List(flags);
        for (DWORD index = 0; Enumerate(index); ++index) paths.push_back(PathOfInterface());
        EXPECT_EQ(GetLastError(), ERROR_NO_MORE_ITEMS);
        EXPECT_TRUE(SetupDiDestroyDeviceInfoList(list));
        list_ = nullptr;
        return paths;
    }

    GUID guid_{};
    HDEVINFO list_ = nullptr;
    SP_DEVICE_INTERFACE_DATA interface_{sizeof(SP_DEVICE_INTERFACE_DATA), {}, 0, 0};
    std::vector<BYTE> buffer_;
};

TEST_F(EnumeratingInterfaces, ListsPresentDevicesInTheirOrder) {
    EXPECT_THAT(Paths(), IsEmpty());
    const auto first = Plug();
    const auto second = Plug(DescriptorWithoutIds());
    EXPECT_THAT(Paths(), ElementsAre(first->Path(), second->Path()));
    first->Unplug();
    EXPECT_THAT(Paths(), ElementsAre(second->Path()));
    EXPECT_THAT(Paths(DIGCF_DEVICEINTERFACE), ElementsAre(first->Path(), second->Path()));
    first->PlugIn();
    EXPECT_THAT(Paths(), ElementsAre(second->Path(), first->Path()));
}

TEST_F(EnumeratingInterfaces, ListsNoOtherClassThanHid) {
    Plug();
    EXPECT_THAT(Paths(DIGCF_PRESENT), IsEmpty());
    guid_.Data1 = 0;
    EXPECT_THAT(Paths(), IsEmpty());
}

TEST_F(EnumeratingInterfaces, ShowsTheMachineAsItWasWhenTheListWasMade) {
    const auto device = Plug();
    List();
    device->Unplug();
    EXPECT_TRUE(Enumerate(0));
    EXPECT_EQ(PathOfInterface(), device->Path());
}

TEST_F(EnumeratingInterfaces, FillsTheInterfaceRecord) {
    Plug();
    List();
    ASSERT_TRUE(Enumerate(0));
    EXPECT_EQ(std::memcmp(&interface_.InterfaceClassGuid, &guid_, sizeof guid_), 0);
    EXPECT_EQ(interface_.Flags, SPINT_ACTIVE);
}

TEST_F(EnumeratingInterfaces, ChecksTheSizeOfTheInterfaceRecord) {
    Plug();
    List();
    interface_.cbSize = 28;
    EXPECT_FALSE(Enumerate(0));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_USER_BUFFER);
    EXPECT_FALSE(SetupDiEnumDeviceInterfaces(list_, nullptr, &guid_, 0, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST_F(EnumeratingInterfaces, RestrictedToOneDeviceIsRefused) {
    Plug();
    List();
    SP_DEVINFO_DATA device{sizeof(SP_DEVINFO_DATA), {}, 0, 0};
    EXPECT_FALSE(SetupDiEnumDeviceInterfaces(list_, &device, &guid_, 0, &interface_));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST_F(EnumeratingInterfaces, ReturnsTheSizeThatAPathNeeds) {
    const auto device = Plug();
    List();
    ASSERT_TRUE(Enumerate(0));
    DWORD size = 0;
    EXPECT_FALSE(SetupDiGetDeviceInterfaceDetailW(list_, &interface_, nullptr, 0, &size, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(size, 4 + (device->Path().size() + 1) * sizeof(wchar_t));
}

TEST_F(EnumeratingInterfaces, ChecksTheDetailRecord) {
    Plug();
    List();
    ASSERT_TRUE(Enumerate(0));
    const auto detail = [&](DWORD cbSize, DWORD size) {
        buffer_.assign(1024, 0);
        Detail()->cbSize = cbSize;
        return SetupDiGetDeviceInterfaceDetailW(list_, &interface_, Detail(), size, nullptr,
                                                nullptr)
                   ? ERROR_SUCCESS
                   : GetLastError();
    };
    EXPECT_EQ(detail(8, 1024), ERROR_SUCCESS);
    EXPECT_EQ(detail(6, 1024), ERROR_INVALID_USER_BUFFER);
    DWORD size = 0;
    SetupDiGetDeviceInterfaceDetailW(list_, &interface_, nullptr, 0, &size, nullptr);
    EXPECT_EQ(detail(8, size), ERROR_SUCCESS);
    EXPECT_EQ(detail(8, size - 1), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(Detail()->DevicePath[0], L'\0');
    EXPECT_FALSE(
        SetupDiGetDeviceInterfaceDetailW(list_, &interface_, nullptr, 8, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_USER_BUFFER);
    interface_.Reserved = 7;
    EXPECT_EQ(detail(8, 1024), ERROR_INVALID_PARAMETER);
}

TEST_F(EnumeratingInterfaces, FillsTheDeviceRecordWhenRequested) {
    Plug();
    List();
    ASSERT_TRUE(Enumerate(0));
    SP_DEVINFO_DATA device{};
    buffer_.assign(1024, 0);
    Detail()->cbSize = 8;
    EXPECT_FALSE(
        SetupDiGetDeviceInterfaceDetailW(list_, &interface_, Detail(), 1024, nullptr, &device));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_USER_BUFFER);
    device.cbSize = sizeof device;
    EXPECT_TRUE(
        SetupDiGetDeviceInterfaceDetailW(list_, &interface_, Detail(), 1024, nullptr, &device));
    EXPECT_EQ(device.DevInst, 1U);
}

TEST_F(EnumeratingInterfaces, NeedsAnOpenList) {
    EXPECT_FALSE(Enumerate(0));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    SetLastError(0);
    EXPECT_FALSE(
        SetupDiGetDeviceInterfaceDetailW(nullptr, &interface_, nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

}  // namespace
}  // namespace simulator_test
