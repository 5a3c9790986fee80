#include "testing/virtual-touchpad/plug/RootDevice.h"

#include "testing/virtual-touchpad/control/ControlProtocol.h"
#include "testing/virtual-touchpad/plug/DeviceInfoSet.h"

#include <cfgmgr32.h>

#include <fstream>
#include <iterator>

namespace virtual_touchpad {
namespace {

constexpr GUID kHidClass = {
    0x745A17A0, 0x74D3, 0x11D0, {0xB6, 0xFE, 0x00, 0xA0, 0xC9, 0x0F, 0x57, 0xDA}};
constexpr wchar_t kEnumerator[] = L"ROOT\\VTOUCHPAD\\";
// Includes the second null character that ends a list of strings.
constexpr wchar_t kHardwareIds[] = L"root\\VTOUCHPAD\0";

class HardwareKey {
 public:
    explicit HardwareKey(HKEY key) : key_(key) {
        if (key_ == INVALID_HANDLE_VALUE) ThrowLastError("cannot open the device's registry key");
    }
    ~HardwareKey() { RegCloseKey(key_); }
    HardwareKey(const HardwareKey&) = delete;
    HardwareKey& operator=(const HardwareKey&) = delete;

    void Set(const wchar_t* name, DWORD type, const void* data, std::size_t size) {
        const LSTATUS error = RegSetValueExW(key_, name, 0, type, static_cast<const BYTE*>(data),
                                             static_cast<DWORD>(size));
        if (error != ERROR_SUCCESS) {
            SetLastError(static_cast<DWORD>(error));
            ThrowLastError("cannot write the device's registry key");
        }
    }
    void Set(const wchar_t* name, const std::wstring& text) {
        Set(name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }
    void Set(const wchar_t* name, DWORD number) { Set(name, REG_DWORD, &number, sizeof(number)); }

    std::wstring Text(const wchar_t* name) const {
        wchar_t text[128] = {};
        DWORD size = sizeof(text);
        const LSTATUS error =
            RegGetValueW(key_, nullptr, name, RRF_RT_REG_SZ, nullptr, text, &size);
        return error == ERROR_SUCCESS ? text : std::wstring();
    }

 private:
    HKEY key_;
};

std::wstring InstanceId(const std::wstring& name) { return kEnumerator + name; }

void WriteConfiguration(HardwareKey& key, const std::wstring& controlLink,
                        const DeviceSettings& settings) {
    key.Set(VIRTUAL_HID_VALUE_DESCRIPTOR, REG_BINARY, settings.reportDescriptor.data(),
            settings.reportDescriptor.size());
    key.Set(VIRTUAL_HID_VALUE_CONTROL_LINK, controlLink);
    key.Set(VIRTUAL_HID_VALUE_VENDOR_ID, settings.vendorId);
    key.Set(VIRTUAL_HID_VALUE_PRODUCT_ID, settings.productId);
    key.Set(VIRTUAL_HID_VALUE_VERSION, settings.versionNumber);
    key.Set(VIRTUAL_HID_VALUE_PRODUCT, settings.productString);
    if (!settings.outputIdRule) return;
    key.Set(VIRTUAL_HID_VALUE_ID_OFFSET, settings.outputIdRule->offset);
    key.Set(VIRTUAL_HID_VALUE_ID_IF_SET, settings.outputIdRule->idIfSet);
    key.Set(VIRTUAL_HID_VALUE_ID_IF_CLEAR, settings.outputIdRule->idIfClear);
}

bool SameFile(const std::filesystem::path& one, const std::filesystem::path& other) {
    std::ifstream a(one, std::ios::binary);
    std::ifstream b(other, std::ios::binary);
    const std::string first{std::istreambuf_iterator<char>(a), {}};
    const std::string second{std::istreambuf_iterator<char>(b), {}};
    return a && b && first == second;
}

std::filesystem::path InstalledDriver() {
    wchar_t folder[MAX_PATH] = {};
    GetSystemDirectoryW(folder, MAX_PATH);
    return std::filesystem::path(folder) / "drivers" / "vtouchpad.sys";
}

void ChooseDriver(DeviceInfoSet& device, const std::filesystem::path& inf) {
    SP_DEVINSTALL_PARAMS_W parameters = {};
    parameters.cbSize = sizeof(parameters);
    SetupDiGetDeviceInstallParamsW(device.Set(), device.Device(), &parameters);
    if (inf.native().size() >= MAX_PATH) throw std::runtime_error("the driver's path is too long");
    inf.native().copy(parameters.DriverPath, MAX_PATH - 1);
    parameters.Flags |= DI_ENUMSINGLEINF | DI_QUIETINSTALL;
    if (!SetupDiSetDeviceInstallParamsW(device.Set(), device.Device(), &parameters) ||
        !SetupDiBuildDriverInfoList(device.Set(), device.Device(), SPDIT_COMPATDRIVER)) {
        ThrowLastError("cannot read the driver's INF");
    }
    device.Install(DIF_SELECTBESTCOMPATDRV, "the INF has no driver for the device");
}

// The driver's file cannot be replaced while it is loaded, and needs not be when it is the same.
void CopyDriver(DeviceInfoSet& device, const std::filesystem::path& driverFolder) {
    const std::filesystem::path installed = InstalledDriver();
    const std::filesystem::path offered = driverFolder / "vtouchpad.sys";
    if (SameFile(offered, installed)) return;
    std::error_code error;
    if (std::filesystem::exists(installed, error) && !std::filesystem::remove(installed, error)) {
        throw std::runtime_error("another build of the driver is loaded: start a fresh machine");
    }
    device.Install(DIF_INSTALLDEVICEFILES, "cannot copy the driver");
}

}  // namespace

void RegisterRootDevice(const std::wstring& name, const std::wstring& controlLink,
                        const DeviceSettings& settings) {
    DeviceInfoSet device(SetupDiCreateDeviceInfoList(&kHidClass, nullptr));
    if (!SetupDiCreateDeviceInfoW(device.Set(), InstanceId(name).c_str(), &kHidClass, nullptr,
                                  nullptr, 0, device.Device())) {
        if (GetLastError() == ERROR_DEVINST_ALREADY_EXISTS) {
            throw std::runtime_error("a device of this name is plugged in already");
        }
        ThrowLastError("cannot create the device");
    }
    if (!SetupDiSetDeviceRegistryPropertyW(device.Set(), device.Device(), SPDRP_HARDWAREID,
                                           reinterpret_cast<const BYTE*>(kHardwareIds),
                                           sizeof(kHardwareIds))) {
        ThrowLastError("cannot set the device's hardware id");
    }
    device.Install(DIF_REGISTERDEVICE, "cannot register the device");
    HardwareKey key(SetupDiCreateDevRegKeyW(device.Set(), device.Device(), DICS_FLAG_GLOBAL, 0,
                                            DIREG_DEV, nullptr, nullptr));
    WriteConfiguration(key, controlLink, settings);
}

void StartRootDevice(const std::wstring& name, const std::filesystem::path& driverFolder) {
    const std::filesystem::path inf = driverFolder / "vtouchpad.inf";
    if (!std::filesystem::exists(inf)) {
        throw std::runtime_error("there is no driver at " + inf.string());
    }
    DeviceInfoSet device(SetupDiCreateDeviceInfoList(&kHidClass, nullptr));
    if (!SetupDiOpenDeviceInfoW(device.Set(), InstanceId(name).c_str(), nullptr, 0,
                                device.Device())) {
        ThrowLastError("cannot open the device");
    }
    ChooseDriver(device, inf);
    CopyDriver(device, driverFolder);
    // The steps of UpdateDriverForPlugAndPlayDevices, for this device only: that function would
    // restart the other plugged devices.
    device.Install(DIF_REGISTER_COINSTALLERS, "cannot register the driver's installers");
    device.Install(DIF_INSTALLINTERFACES, "cannot install the driver's interfaces");
    device.Install(DIF_INSTALLDEVICE, "cannot install the driver");
}

void RemoveRootDevice(const std::wstring& name) {
    DeviceInfoSet device(SetupDiCreateDeviceInfoList(&kHidClass, nullptr));
    if (!SetupDiOpenDeviceInfoW(device.Set(), InstanceId(name).c_str(), nullptr, 0,
                                device.Device())) {
        throw std::runtime_error("no device of this name is plugged in");
    }
    device.Install(DIF_REMOVE, "cannot remove the device");
}

std::vector<std::wstring> RootDeviceControlLinks() {
    DeviceInfoSet devices(SetupDiGetClassDevsW(&kHidClass, L"ROOT", nullptr, 0));
    std::vector<std::wstring> links;
    for (DWORD i = 0; SetupDiEnumDeviceInfo(devices.Set(), i, devices.Device()); ++i) {
        wchar_t id[MAX_DEVICE_ID_LEN] = {};
        if (!SetupDiGetDeviceInstanceIdW(devices.Set(), devices.Device(), id, MAX_DEVICE_ID_LEN,
                                         nullptr) ||
            std::wstring(id).rfind(kEnumerator, 0) != 0) {
            continue;
        }
        links.push_back(HardwareKey(SetupDiOpenDevRegKey(devices.Set(), devices.Device(),
                                                         DICS_FLAG_GLOBAL, 0, DIREG_DEV, KEY_READ))
                            .Text(VIRTUAL_HID_VALUE_CONTROL_LINK));
    }
    return links;
}

}  // namespace virtual_touchpad
