// Slim locks and their condition variables. The calls do not reach the kernel, so they are neither
// recorded nor failed.
#include <windows.h>

extern "C" {

void WINAPI AcquireSRWLockExclusive(PSRWLOCK SRWLock) { pthread_mutex_lock(&SRWLock->Mutex); }

void WINAPI ReleaseSRWLockExclusive(PSRWLOCK SRWLock) { pthread_mutex_unlock(&SRWLock->Mutex); }

// Supports only waits without limit on locks taken exclusively, and fails for others.
BOOL WINAPI SleepConditionVariableSRW(PCONDITION_VARIABLE ConditionVariable, PSRWLOCK SRWLock,
                                      DWORD dwMilliseconds, ULONG Flags) {
    if (dwMilliseconds != INFINITE || Flags != 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    pthread_cond_wait(&ConditionVariable->Condition, &SRWLock->Mutex);
    return TRUE;
}

void WINAPI WakeAllConditionVariable(PCONDITION_VARIABLE ConditionVariable) {
    pthread_cond_broadcast(&ConditionVariable->Condition);
}

}  // extern "C"
