// The named mutex whose existence marks an open touchpad session, system-wide. No thread ever waits
// on it.
#pragma once

#include <string>

namespace vela {

inline const std::wstring kSessionDeviceMutexName = L"Global\\VelaDeviceMutex";   // the session's
inline const std::wstring kPresenceDeviceMutexName = L"Global\\VelaDeviceMutex";  // IsVelaPresent's

}  // namespace vela
