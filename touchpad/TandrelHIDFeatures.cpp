// The host's two switches, Enable and Activate, and what the session knows of its device's plug.
#include "log/ILog.h"
#include "touchpad/BiDirectionSwipe.h"
#include "touchpad/TandrelHID.h"

namespace vela {
namespace {

constexpr std::size_t kProductStringLength = 256;

// Words in the product strings of touchpads that can be taken off the machine.
constexpr const wchar_t* kDetachableWords[] = {L"morlo", L"detachable"};

// The letters A to Z only, as the runtime's tolower does in its default locale, and safe for
// characters that are no plain char.
wchar_t LowerCase(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a')
                                                  : character;
}

}  // namespace

bool CTandrelHID::IsActivated() const {
    const std::uint32_t state = activationState_;
    return state == kActive || state == kActiveHostSetsLights;
}

bool CTandrelHID::GetDeviceConnectState(bool& connected) {
    if (!initialized_) {
        GetLogger()->Log(kLogInfo, "GetDeviceConnectState",
                         "GetDeviceConnectState failed because doesn't initialize");
        return false;
    }
    if (!IsDetachable()) {
        connected = true;
        return true;
    }
    const std::lock_guard<std::mutex> lock(deviceQueryMutex_);
    const HANDLE device = device_;
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    connected = device != nullptr && device != INVALID_HANDLE_VALUE &&
                HidD_GetPreparsedData(device, &preparsed);
    if (connected) HidD_FreePreparsedData(preparsed);
    return true;
}

bool CTandrelHID::IsDetachable() {
    constexpr const char* kFunction = "IsDetachable";
    const std::lock_guard<std::mutex> lock(productMutex_);
    if (productString_.empty()) {
        wchar_t buffer[kProductStringLength] = {};
        if (HidD_GetProductString(device_, buffer, sizeof(buffer))) {
            buffer[kProductStringLength - 1] = L'\0';
            productString_ = buffer;
            for (wchar_t& character : productString_) character = LowerCase(character);
            VELA_WIDE_FORMAT_BEGIN
            GetLogger()->Log(kLogInfo, kFunction, "Product string: %ws", productString_.c_str());
            VELA_WIDE_FORMAT_END
        } else {
            const auto error = static_cast<int>(GetLastError());
            GetLogger()->Log(kLogWarning, kFunction, "GetProductString failed, GetLastError(%d).",
                             error);
        }
    }
    // A touchpad that does not tell its name may be one that is not there just now.
    if (productString_.empty()) return true;
    for (const wchar_t* const word : kDetachableWords) {
        if (productString_.find(word) != std::wstring::npos) return true;
    }
    return false;
}

bool CTandrelHID::IsSupportBiDirectionSwipe() const {
    const std::shared_ptr<const CHIDInformation> information = Information();
    return initialized_ && information != nullptr && SupportsBiDirectionSwipe(*information);
}

bool CTandrelHID::Enable(bool enable) {
    if (!initialized_) return false;
    if (!enable) {
        const StatusChangeCallback callback = statusChangeCallback_;
        if (TemporaryDisable_ && !TabletModeDisable_ && callback != nullptr && IsActivated()) {
            TemporaryDisable_ = false;
            callback(kStatusNormal);
        }
        SetButtonBreathing(BUTTON_ID_CHAT, false);
    }
    featureEnabled_ = enable;
    GetLogger()->Log(kLogInfo, "Enable", "Enable HID (%d)", enable);
    Update(false);
    return true;
}

bool CTandrelHID::Activate(std::uint32_t value) {
    if (!initialized_) return false;
    if (value == activationState_) return true;

    switch (value) {
        case kActive:
        case kActiveHostSetsLights:
            if (activationState_ == kSuspended) {
                const std::lock_guard<std::mutex> lock(buttonMutex_);
                buttons_.SetMeeting(savedButtons_);
            }
            if (IsDetachable()) StopHeartbeat();
            StartHeartbeat();
            break;
        case kDeactivated:
            if (IsDetachable()) StopHeartbeat();
            SetButtonBreathing(BUTTON_ID_CHAT, false);
            ReportStatus(kStatusDeactivated);
            ResetButtonVisibility();
            break;
        case kSuspended:
            if (IsDetachable()) StopHeartbeat();
            // A host suspends from the thread that sets its buttons.
            savedButtons_ = buttons_.Meeting();
            ResetButtonVisibility();
            break;
        default:
            break;
    }
    {
        // One step for the reader thread: it stores the firmware's flags under the same mutex.
        const std::lock_guard<std::mutex> lock(statusMutex_);
        activationState_ = value;
        if (value == kDeactivated) TemporaryDisable_ = false;
        Update(true);
    }
    // A deactivation is told a second time: hosts count on the one before the lights go out as well
    // as on the one after.
    ReportStatus(IsActivated() ? StatusOr(value) : value);
    GetLogger()->Log(kLogInfo, "Activate", "Activate HID (%d)", static_cast<int>(value));
    return true;
}

}  // namespace vela
