#include "touchpad/TouchpadDevice.h"

#include <algorithm>
#include <iterator>

#include "log/ILog.h"
#include "platform/Lock.h"
#include "platform/Utf8.h"
#include "touchpad/DeviceMutex.h"
#include "touchpad/IHid.h"

namespace vela {
namespace {

constexpr std::size_t kProductStringLength = 256;

// Words in the product strings of touchpads that can be taken off the machine.
constexpr const wchar_t* kDetachableWords[] = {L"morlo", L"detachable"};

// Changes the letters A to Z only, as tolower does in the default locale, but accepts characters
// outside the range of a plain char.
wchar_t LowerCase(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a')
                                                  : character;
}

bool IsDetachableProduct(const std::wstring& productString) {
    // A touchpad whose product string cannot be read may be detached at the moment.
    if (productString.empty()) return true;
    return std::any_of(
        std::begin(kDetachableWords), std::end(kDetachableWords),
        [&](const wchar_t* word) { return productString.find(word) != std::wstring::npos; });
}

}  // namespace

std::uint32_t TouchpadDevice::Open(const std::shared_ptr<const CHIDInformation>& information) {
    // Exclusive access: two agents driving one touchpad's lights would undo each other's reports.
    const HANDLE device = CreateFileW(information->devicePath.c_str(), GENERIC_READ | GENERIC_WRITE,
                                      0, nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    if (device == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        GetLogger()->Log(kLogError, "Initialize",
                         "Initialize failed, CreateFile failed GetLastError(%d).",
                         static_cast<int>(error));
        return error == ERROR_SHARING_VIOLATION ? kHidHeldByOther : kHidFailed;
    }
    std::atomic_store(&current_, std::make_shared<OpenTouchpad>(information, device));
    return kHidOpen;
}

// An existing name already marks an open session. The handle that opened it is deliberately not
// closed: it keeps the name for as long as this process lives.
void TouchpadDevice::MarkSessionOpen() {
    if (OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kSessionDeviceMutexName.c_str()) != nullptr) return;
    deviceMutex_ = CreateMutexW(nullptr, FALSE, kSessionDeviceMutexName.c_str());
}

void TouchpadDevice::Close() {
    std::shared_ptr<OpenTouchpad> closing =
        std::atomic_exchange(&current_, std::make_shared<OpenTouchpad>(nullptr, nullptr));
    closing->handle.Close();
    if (deviceMutex_ != nullptr) CloseHandle(deviceMutex_);
    deviceMutex_ = nullptr;
    closing.reset();
    // Closing the handle usually ends the pending operations; those still pending stay allocated.
    operations_.FreeEnded();
}

bool TouchpadDevice::GetDeviceConnectState(bool& connected) {
    if (!initialized_) {
        GetLogger()->Log(kLogInfo, "GetDeviceConnectState",
                         "GetDeviceConnectState failed because doesn't initialize");
        return false;
    }
    if (!IsDetachable()) {
        connected = true;
        return true;
    }
    const Lock lock(queryMutex_);
    connected = Current()->handle.Use([](HANDLE device) {
        PHIDP_PREPARSED_DATA preparsed = nullptr;
        if (device == nullptr || !HidD_GetPreparsedData(device, &preparsed)) return false;
        HidD_FreePreparsedData(preparsed);
        return true;
    });
    return true;
}

bool TouchpadDevice::IsDetachable() {
    const Lock lock(productMutex_);
    if (productString_.empty()) ReadProductString();
    return IsDetachableProduct(productString_);
}

void TouchpadDevice::ReadProductString() {
    constexpr const char* kFunction = "IsDetachable";
    wchar_t buffer[kProductStringLength] = {};
    const bool read = Current()->handle.Use([&](HANDLE device) {
        return HidD_GetProductString(device, buffer, sizeof(buffer)) != FALSE;
    });
    if (!read) {
        const auto error = static_cast<int>(GetLastError());
        GetLogger()->Log(kLogWarning, kFunction, "GetProductString failed, GetLastError(%d).",
                         error);
        return;
    }
    buffer[kProductStringLength - 1] = L'\0';
    productString_ = buffer;
    std::transform(productString_.begin(), productString_.end(), productString_.begin(), LowerCase);
    GetLogger()->Log(kLogInfo, kFunction, "Product string: %s", Utf8(productString_).c_str());
}

}  // namespace vela
