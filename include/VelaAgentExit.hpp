// Lets a process end with its own exit code although a detachable touchpad was active in it. For
// VelaAgentWatch.hpp, which includes it.
#ifndef VELA_AGENT_EXIT_HPP
#define VELA_AGENT_EXIT_HPP

#include "VelaAgent.hpp"

#include <atomic>

namespace vela_agent {
namespace detail {

// After a detachable touchpad was active the library keeps a thread that nobody joins, and its C++
// runtime ends the process ("terminate called") when the system unloads the library at the
// process's end. Before it unloads libraries, the system ends all other threads with the process's
// exit code, and then calls the fiber-local storage callbacks of the thread that ends the process.
// The one here ends the process at this moment, with that exit code.
class OrderlyExit {
 public:
    // Prepares the process for its end. This module then stays loaded, and one thread of the
    // process only waits. Any thread may call it, again and again.
    static void Prepare() {
        static const bool isPrepared = [] {
            HMODULE pinned = nullptr;
            GetModuleHandleExW(
                GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                reinterpret_cast<LPCWSTR>(reinterpret_cast<void*>(&OnThreadEnd)), &pinned);
            waiting_ = CreateThread(nullptr, kStackSize, WaitForever, nullptr,
                                    STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
            if (waiting_ != nullptr) callbacks_ = FlsAlloc(OnThreadEnd);
            return true;
        }();
        static_cast<void>(isPrepared);
    }

    // Covers the end of the process by this thread, if it was prepared before.
    static void CoverThisThread() {
        const DWORD callbacks = callbacks_;
        if (callbacks != FLS_OUT_OF_INDEXES) FlsSetValue(callbacks, waiting_);
    }

 private:
    static constexpr SIZE_T kStackSize = 64 * 1024;
    static constexpr DWORD kPatience = 50;  // milliseconds, in which the system ends a thread

    static DWORD WINAPI WaitForever(void*) {
        for (;;) Sleep(INFINITE);
    }
    // The waiting thread ends only with the process; else only this thread ends.
    static void WINAPI OnThreadEnd(void* waiting) {
        DWORD exitCode = 0;
        if (WaitForSingleObject(waiting, kPatience) == WAIT_OBJECT_0 &&
            GetExitCodeThread(waiting, &exitCode)) {
            TerminateProcess(GetCurrentProcess(), exitCode);
        }
    }

    inline static HANDLE waiting_ = nullptr;  // set before callbacks_
    inline static std::atomic<DWORD> callbacks_{FLS_OUT_OF_INDEXES};
};

}  // namespace detail
}  // namespace vela_agent

#endif
