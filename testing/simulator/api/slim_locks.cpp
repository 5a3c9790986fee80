// Slim locks and their condition variables. They are no calls to the machine's kernel: neither
// recorded nor failed.
#include <windows.h>

extern "C" {

void WINAPI AcquireSRWLockExclusive(PSRWLOCK SRWLock) { pthread_mutex_lock(&SRWLock->Mutex); }

void WINAPI ReleaseSRWLockExclusive(PSRWLOCK SRWLock) { pthread_mutex_unlock(&SRWLock->Mutex); }

// Waits without limit for locks taken exclusively only, and refuses the rest.
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
