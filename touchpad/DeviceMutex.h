// The named mutex that marks, system-wide, that a touchpad session is open. Nobody ever waits on
// it: its name is the message.
#pragma once

#include <string>

namespace vela {

inline const std::wstring kSessionDeviceMutexName = L"Global\\VelaDeviceMutex";   // the session's
inline const std::wstring kPresenceDeviceMutexName = L"Global\\VelaDeviceMutex";  // IsVelaPresent's

}  // namespace vela
