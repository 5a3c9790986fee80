// The exports that find, open and close the touchpad.
#include <windows.h>

#include "hid/HIDDiscovery.h"
#include "include/VelaAgent.h"
#include "interface/Singletons.h"
#include "touchpad/DeviceMutex.h"

using namespace vela;

int32_t Init() {
    CTandrelHID& session = TouchpadSession();
    const std::shared_ptr<CHIDInformation> information = ScanHIDInformation(&session);
    if (information->devicePath.empty()) return VELA_INIT_NOT_FOUND;
    switch (session.Initialize(information)) {
        case kHidOpen:
            return VELA_INIT_OPEN;
        case kHidFailed:
            return VELA_INIT_NOT_FOUND;
        default:
            return VELA_INIT_HELD_BY_OTHER;
    }
}

VELA_BOOL UnInit() { return TouchpadSession().Uninitialize(); }

VELA_BOOL IsVelaPresent() {
    CTandrelHID& session = TouchpadSession();
    bool connected = false;
    if (session.GetDeviceConnectState(connected)) return connected;

    // Access denied means that the name exists in another security context: another user's process
    // has a touchpad open. A granted handle stays open; the name lives as long as this process.
    const HANDLE mutex = OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kPresenceDeviceMutexName.c_str());
    if (mutex == nullptr && GetLastError() == ERROR_ACCESS_DENIED) return 1;

    return !ScanHIDInformation(&session)->devicePath.empty();
}

void SetVelaButtonPressCallback(VelaButtonPressCallback callback) {
    TouchpadSession().SetButtonPressCallback(callback);
}

void SetVelaStatusChangeCallback(VelaStatusChangeCallback callback) {
    TouchpadSession().SetStatusChangeCallback(callback);
}
