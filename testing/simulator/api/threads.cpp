// Threads, their exit codes and their fiber-local storage. At the end of the process the other
// threads get its exit code, and then the callbacks of the thread that ends it are called.
#include <windows.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"

using namespace simulator;

namespace {

struct ThreadObject : KernelObject {
    Signal* Waitable() override { return &ended; }

    void End(DWORD code) {
        if (exitCode != STILL_ACTIVE) return;
        exitCode = code;
        ended.Set();
    }

    Signal ended{Signal::Reset::Manual, false};
    DWORD exitCode = STILL_ACTIVE;
};

constexpr std::size_t kSlots = 16;
using Values = std::array<PVOID, kSlots>;

// Never destroyed: the process uses it to its end. The machine's lock guards it.
struct Process {
    std::vector<std::shared_ptr<ThreadObject>> threads;
    std::vector<PFLS_CALLBACK_FUNCTION> callbacks;
};

Process& TheProcess() {
    static Process& process = *new Process;
    return process;
}

thread_local Values values{};

void CallBack() {
    std::vector<PFLS_CALLBACK_FUNCTION> callbacks;
    {
        const MachineLock lock;
        callbacks = TheProcess().callbacks;
    }
    for (std::size_t i = 0; i < callbacks.size(); ++i) {
        if (values[i] != nullptr && callbacks[i] != nullptr) callbacks[i](values[i]);
    }
}

void EndProcess(int exitCode, void*) {
    std::fflush(nullptr);
    {
        const MachineLock lock;
        for (const auto& thread : TheProcess().threads) thread->End(static_cast<DWORD>(exitCode));
    }
    CallBack();
}

// The thread of main ends with the process.
struct ThreadEnd {
    ~ThreadEnd() {
        if (!isMain) CallBack();
    }
    bool isMain = true;
};
thread_local ThreadEnd threadEnd;
const std::thread::id mainThread = std::this_thread::get_id();

}  // namespace

extern "C" {

HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES, SIZE_T, LPTHREAD_START_ROUTINE lpStartAddress,
                           LPVOID lpParameter, DWORD, LPDWORD) {
    if (const auto fault = Enter("CreateThread", "")) return fault->Failed<HANDLE>(nullptr);
    const MachineLock lock;
    const auto object = std::make_shared<ThreadObject>();
    TheProcess().threads.push_back(object);
    std::thread([=] {
        const DWORD code = lpStartAddress(lpParameter);
        const MachineLock endLock;
        object->End(code);
    }).detach();
    return State().handles.Add(HandleKind::Thread, object);
}

BOOL WINAPI GetExitCodeThread(HANDLE hThread, LPDWORD lpExitCode) {
    const MachineLock lock;
    const auto thread = State().handles.Find<ThreadObject>(hThread);
    if (thread == nullptr) return ReportError(ERROR_INVALID_HANDLE);
    *lpExitCode = thread->exitCode;
    return TRUE;
}

void WINAPI Sleep(DWORD dwMilliseconds) {
    if (dwMilliseconds == INFINITE) {
        for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(dwMilliseconds));
}

DWORD WINAPI FlsAlloc(PFLS_CALLBACK_FUNCTION lpCallback) {
    if (const auto fault = Enter("FlsAlloc", "")) return fault->Failed<DWORD>(FLS_OUT_OF_INDEXES);
    const MachineLock lock;
    std::vector<PFLS_CALLBACK_FUNCTION>& callbacks = TheProcess().callbacks;
    if (callbacks.size() == kSlots) return FailWith(ERROR_NOT_ENOUGH_MEMORY, FLS_OUT_OF_INDEXES);
    if (callbacks.empty()) on_exit(EndProcess, nullptr);
    callbacks.push_back(lpCallback);
    return static_cast<DWORD>(callbacks.size() - 1);
}

BOOL WINAPI FlsSetValue(DWORD dwFlsIndex, PVOID lpFlsData) {
    if (dwFlsIndex >= kSlots) return ReportError(ERROR_INVALID_PARAMETER);
    threadEnd.isMain = std::this_thread::get_id() == mainThread;
    values[dwFlsIndex] = lpFlsData;
    return TRUE;
}

}  // extern "C"
