// Notifications of the resume from sleep, for programs without windows.
#pragma once

#include <minwindef.h>

extern "C" {

DWORD WINAPI PowerRegisterSuspendResumeNotification(DWORD Flags, HANDLE Recipient,
                                                    PVOID* RegistrationHandle);
DWORD WINAPI PowerUnregisterSuspendResumeNotification(PVOID RegistrationHandle);

}  // extern "C"
