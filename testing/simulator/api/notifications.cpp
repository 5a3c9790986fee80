// Registrations for notifications: of devices and of the resume, by window and by callback.
#include <windows.h>

#include <cfgmgr32.h>
#include <dbt.h>
#include <powrprof.h>

#include <cstring>
#include <vector>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/Notifications.h"

using namespace simulator;

namespace {

// DEVICE_NOTIFY_SUBSCRIBE_PARAMETERS
struct PowerSubscription {
    ULONG(CALLBACK* callback)(PVOID context, ULONG type, PVOID setting);
    PVOID context;
};

std::vector<std::uint64_t> EventData(const std::wstring& path) {
    const std::size_t nameSize = (path.size() + 1) * sizeof(wchar_t);
    std::vector<std::uint64_t> record((sizeof(CM_NOTIFY_EVENT_DATA) + nameSize) / 8 + 1);
    auto* const data = reinterpret_cast<CM_NOTIFY_EVENT_DATA*>(record.data());
    data->FilterType = CM_NOTIFY_FILTER_TYPE_DEVICEINTERFACE;
    std::memcpy(data->u.DeviceInterface.SymbolicLink, path.c_str(), nameSize);
    return record;
}

HANDLE RegisterWindow(HANDLE window, DWORD flags, Notice notice) {
    if (flags != DEVICE_NOTIFY_WINDOW_HANDLE) {
        return FailWith<HANDLE>(ERROR_INVALID_PARAMETER, nullptr);
    }
    if (!Notifications::Get().RegisterFor(window, notice)) {
        return FailWith<HANDLE>(ERROR_INVALID_WINDOW_HANDLE, nullptr);
    }
    return window;
}

}  // namespace

extern "C" {

HDEVNOTIFY WINAPI RegisterDeviceNotificationW(HANDLE hRecipient, LPVOID NotificationFilter,
                                              DWORD Flags) {
    if (const auto fault = Enter("RegisterDeviceNotificationW", "")) {
        return fault->Failed<HANDLE>(nullptr);
    }
    const auto* const filter = static_cast<const DEV_BROADCAST_HDR*>(NotificationFilter);
    if (filter->dbch_devicetype != DBT_DEVTYP_DEVICEINTERFACE) {
        return FailWith<HANDLE>(ERROR_INVALID_PARAMETER, nullptr);
    }
    return RegisterWindow(hRecipient, Flags, Notice::Arrival);
}

HPOWERNOTIFY WINAPI RegisterSuspendResumeNotification(HANDLE hRecipient, DWORD Flags) {
    if (const auto fault = Enter("RegisterSuspendResumeNotification", "")) {
        return fault->Failed<HANDLE>(nullptr);
    }
    return RegisterWindow(hRecipient, Flags, Notice::Resume);
}

DWORD WINAPI CM_Register_Notification(PCM_NOTIFY_FILTER pFilter, PVOID pContext,
                                      PCM_NOTIFY_CALLBACK pCallback,
                                      PHCMNOTIFICATION pNotifyContext) {
    if (const auto fault = Enter("CM_Register_Notification", "")) {
        return fault->Failed<DWORD>(CR_FAILURE);
    }
    if (pFilter->cbSize != sizeof(*pFilter)) return CR_FAILURE;
    // The handle is known only when the registration is done, which no notification precedes.
    const auto notify = [=](Notice notice, const std::wstring& path) {
        if (notice == Notice::Resume) return;
        std::vector<std::uint64_t> data = EventData(path);
        pCallback(nullptr, pContext,
                  notice == Notice::Arrival ? CM_NOTIFY_ACTION_DEVICEINTERFACEARRIVAL
                                            : CM_NOTIFY_ACTION_DEVICEINTERFACEREMOVAL,
                  reinterpret_cast<PCM_NOTIFY_EVENT_DATA>(data.data()),
                  static_cast<DWORD>(data.size() * sizeof(data[0])));
    };
    *pNotifyContext = static_cast<HCMNOTIFICATION>(Notifications::Get().Subscribe(notify));
    return CR_SUCCESS;
}

DWORD WINAPI CM_Unregister_Notification(HCMNOTIFICATION NotifyContext) {
    if (const auto fault = Enter("CM_Unregister_Notification", "")) {
        return fault->Failed<DWORD>(CR_FAILURE);
    }
    return Notifications::Get().Unsubscribe(NotifyContext) ? CR_SUCCESS : CR_FAILURE;
}

DWORD WINAPI PowerRegisterSuspendResumeNotification(DWORD Flags, HANDLE Recipient,
                                                    PVOID* RegistrationHandle) {
    if (const auto fault = Enter("PowerRegisterSuspendResumeNotification", "")) {
        return fault->Failed<DWORD>(ERROR_INVALID_PARAMETER);
    }
    if (Flags != DEVICE_NOTIFY_CALLBACK) return ERROR_INVALID_PARAMETER;
    const PowerSubscription subscription = *static_cast<const PowerSubscription*>(Recipient);
    *RegistrationHandle =
        Notifications::Get().Subscribe([subscription](Notice notice, const std::wstring&) {
            if (notice != Notice::Resume) return;
            subscription.callback(subscription.context, PBT_APMRESUMEAUTOMATIC, nullptr);
        });
    return ERROR_SUCCESS;
}

DWORD WINAPI PowerUnregisterSuspendResumeNotification(PVOID RegistrationHandle) {
    if (const auto fault = Enter("PowerUnregisterSuspendResumeNotification", "")) {
        return fault->Failed<DWORD>(ERROR_INVALID_PARAMETER);
    }
    const bool known = Notifications::Get().Unsubscribe(RegistrationHandle);
    return known ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER;
}

}  // extern "C"
