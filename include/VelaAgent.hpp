// VelaAgent for C++17 hosts on Windows: loads the library by its full path, and wraps its sessions
// so that they close themselves. Header-only; VelaAgent.h documents every function.
//
//     vela_agent::Library library(L"C:\\Program Files\\Host\\VelaAgent.dll");
//     vela_agent::Logger logger(library, localAppData / "Host" / "Logs");  // %LOCALAPPDATA%
//     vela_agent::Session session(library, {[](VelaButton button, bool newLight) { ... },
//                                           [](std::uint32_t status) { ... }});
//     session.EnableFeature(true);
//
// Objects that close themselves may be static, but not thread_local. Those of a program close when
// it exits. Those of a plug-in DLL keep the DLL loaded, as FreeLibrary would destroy them where
// closing waits for ever, and are left open when the process ends (convention 7); a DLL creates
// them in a function (std::optional), as no thread starts before DllMain is over.
#ifndef VELA_AGENT_HPP
#define VELA_AGENT_HPP

#if __cplusplus < 201703L && (!defined(_MSVC_LANG) || _MSVC_LANG < 201703L)
#error "VelaAgent.hpp needs C++17: compile with -std=c++17 or /std:c++17."
#endif

// Puts the host's own min, max and NOMINMAX aside, and restores them after the includes: a host
// that uses the macros of <windows.h> includes that first.
#pragma push_macro("min")
#pragma push_macro("max")
#pragma push_macro("NOMINMAX")
#undef min
#undef max
#undef NOMINMAX
#define NOMINMAX

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "VelaAgent.h"

#pragma pop_macro("NOMINMAX")
#pragma pop_macro("max")
#pragma pop_macro("min")

namespace vela_agent {
namespace detail {

inline std::string Utf8(const std::wstring& text) {
    const auto length = static_cast<int>(text.size());
    std::string utf8(text.size() * 3, '\0');  // the most that a wide character takes
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(),
                                         static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(size));
    return utf8;
}

inline std::string Text(DWORD systemError) {
    return std::system_category().message(static_cast<int>(systemError)) + " (error " +
           std::to_string(systemError) + ")";
}

}  // namespace detail

// Reports that the library cannot be loaded, or is not the one that this header is for.
class LoadError : public std::runtime_error {
 public:
    LoadError(std::filesystem::path file, std::string exportName, DWORD systemError)
        : std::runtime_error((exportName.empty() ? "cannot load " : "no " + exportName + " in ") +
                             detail::Utf8(file.wstring()) + ": " + detail::Text(systemError)),
          file_(std::move(file)),
          exportName_(std::move(exportName)),
          systemError_(systemError) {}

    const std::filesystem::path& File() const { return file_; }
    // The function that is missing; empty when the file itself cannot be loaded.
    const std::string& ExportName() const { return exportName_; }
    // The error that GetLastError returned.
    DWORD SystemError() const { return systemError_; }

 private:
    std::filesystem::path file_;
    std::string exportName_;
    DWORD systemError_;
};

// Reports that the log directory does not exist.
class LogError : public std::runtime_error {
 public:
    explicit LogError(std::filesystem::path directory)
        : std::runtime_error("no log directory " + detail::Utf8(directory.wstring())),
          directory_(std::move(directory)) {}
    const std::filesystem::path& Directory() const { return directory_; }

 private:
    std::filesystem::path directory_;
};

// Reports that there is no touchpad to open, or that it is not free.
class OpenError : public std::runtime_error {
 public:
    OpenError(VelaInitResult result, const std::string& text)
        : std::runtime_error(text), result_(result) {}
    VelaInitResult Result() const { return result_; }

 private:
    VelaInitResult result_;
};

namespace detail {

// The functions of a loaded library that other code may unload; hosts use Library instead.
class Exports {
 public:
    explicit Exports(const std::filesystem::path& file)
        : file_(file), module_(Load(std::filesystem::path(file).make_preferred())) {
#define VELA_AGENT_RESOLVE(name) Resolve(#name, this->name);
        VELA_AGENT_FOR_EACH_EXPORT(VELA_AGENT_RESOLVE)
#undef VELA_AGENT_RESOLVE
    }

    const std::filesystem::path& File() const { return file_; }
    HMODULE Module() const { return module_; }

#define VELA_AGENT_DECLARE(name) Vela##name##Function name = nullptr;
    VELA_AGENT_FOR_EACH_EXPORT(VELA_AGENT_DECLARE)
#undef VELA_AGENT_DECLARE

 private:
    static HMODULE Load(const std::filesystem::path& file) {
        if (!file.is_absolute()) throw LoadError(file, "", ERROR_BAD_PATHNAME);
        const HMODULE module =
            LoadLibraryExW(file.wstring().c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        if (module == nullptr) throw LoadError(file, "", GetLastError());
        return module;
    }

    template <typename Function>
    void Resolve(const char* name, Function& function) {
        const FARPROC address = GetProcAddress(module_, name);
        if (address == nullptr) throw LoadError(file_, name, GetLastError());
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(address));
    }

    std::filesystem::path file_;
    HMODULE module_;
};

// Keeps the module that contains this address loaded until the process ends, whoever frees it.
inline bool Pin(const void* address) {
    HMODULE module = nullptr;
    return GetModuleHandleExW(
               GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
               static_cast<LPCWSTR>(address), &module) != FALSE;
}

// The base of objects that close themselves. Closing waits for the library's threads, which end
// only while the system's loader is free; it never is while static objects of a DLL are destroyed.
// So the DLL that holds such an object, and whose code the library calls back, stays loaded until
// the process ends. Nothing is closed then: the threads are gone, and one may have held a lock.
class SelfClosing {
 public:
    SelfClosing(const SelfClosing&) = delete;
    SelfClosing& operator=(const SelfClosing&) = delete;

 protected:
    SelfClosing() {
        static const char inThisModule = 0;
        if (!Pin(&inThisModule)) {
            throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
        }
    }
    ~SelfClosing() = default;

    // Returns false while the system unloads the libraries of a process that ends. Static objects
    // of a program are destroyed before that.
    static bool MayClose() {
        using Function = BOOLEAN(WINAPI*)();
        const HMODULE system = GetModuleHandleW(L"ntdll.dll");
        const FARPROC isEnding = GetProcAddress(system, "RtlDllShutdownInProgress");
        return isEnding == nullptr ||
               reinterpret_cast<Function>(reinterpret_cast<void*>(isEnding))() == FALSE;
    }
};

}  // namespace detail

// The functions of the loaded library: library.IsVelaPresent(). It stays loaded until the process
// ends, even after FreeLibrary: unloading would end a process whose logger runs, or that had a
// detachable touchpad active. So objects may be copied freely.
class Library : public detail::Exports {
 public:
    // `file` is an absolute path: no folder is searched, and the library's own dependencies come
    // from the system's folder only. Throws LoadError.
    explicit Library(const std::filesystem::path& file) : Exports(file) {
        if (!detail::Pin(Module())) throw LoadError(file, "", GetLastError());
    }
};

// Logs into a directory for as long as it lives.
class Logger : detail::SelfClosing {
 public:
    // The directory has to exist, and only the user should be able to write there; a relative one
    // is resolved against the current directory now. Throws LogError when there is none.
    Logger(Library library, const std::filesystem::path& directory) : library_(std::move(library)) {
        library_.InitLogger(Existing(directory).wstring().c_str());
    }
    ~Logger() {
        if (MayClose()) library_.UnInitLogger();
    }

 private:
    static std::filesystem::path Existing(const std::filesystem::path& directory) {
        std::error_code error;
        auto absolute = std::filesystem::absolute(directory, error).make_preferred();
        if (!error && std::filesystem::is_directory(absolute, error)) return absolute;
        throw LogError(absolute.empty() ? directory : absolute);
    }

    const Library library_;
};

// The handlers that the touchpad's session calls, on the threads that VelaAgent.h names. They may
// be empty, must not throw, and must not wait for a thread that may be destroying the session.
struct Handlers {
    std::function<void(VelaButton button, bool newLight)> onPress;
    std::function<void(std::uint32_t status)> onStatus;
};

namespace detail {

// The library's callbacks carry no context, so the handlers of the one session are found here while
// it lives. A callback copies the shared_ptr: handlers outlive a running callback; one that arrives
// after the end does nothing.
class HandlerSlot : SelfClosing {
 public:
    // Throws std::logic_error while another session lives.
    explicit HandlerSlot(Handlers handlers) {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (handlers_ != nullptr) throw std::logic_error("the touchpad's session is open already");
        handlers_ = std::make_shared<const Handlers>(std::move(handlers));
    }
    ~HandlerSlot() {
        if (!MayClose()) return;
        std::shared_ptr<const Handlers> handlers;  // destroyed without the lock
        const std::lock_guard<std::mutex> lock(mutex_);
        handlers_.swap(handlers);
    }

    static std::shared_ptr<const Handlers> Share() {
        const std::lock_guard<std::mutex> lock(mutex_);
        return handlers_;
    }

 private:
    static inline std::mutex mutex_;  // guards: handlers_
    static inline std::shared_ptr<const Handlers> handlers_;
};

// An exception must not cross the library: it ends the process here.
inline void OnPress(std::uint32_t button, std::uint32_t newLight) noexcept {
    const auto handlers = HandlerSlot::Share();
    if (handlers == nullptr || !handlers->onPress) return;
    handlers->onPress(static_cast<VelaButton>(button), newLight != 0);
}

inline void OnStatus(std::uint32_t status) noexcept {
    const auto handlers = HandlerSlot::Share();
    if (handlers != nullptr && handlers->onStatus) handlers->onStatus(status);
}

}  // namespace detail

// The touchpad, open for as long as this object lives; only one may exist at a time. It must not be
// destroyed by a handler, nor while another thread is inside one of its functions.
class Session : detail::SelfClosing {
 public:
    // Throws OpenError, or std::logic_error while another session lives.
    explicit Session(Library library, Handlers handlers = {})
        : library_(std::move(library)), slot_(std::move(handlers)) {
        const auto result = static_cast<VelaInitResult>(library_.Init());
        if (result != VELA_INIT_OPEN) {
            throw OpenError(result, result == VELA_INIT_HELD_BY_OTHER
                                        ? "the touchpad is held by another process"
                                        : "no touchpad found, or it cannot be opened");
        }
        library_.SetVelaButtonPressCallback(detail::OnPress);
        library_.SetVelaStatusChangeCallback(detail::OnStatus);
    }
    ~Session() {
        if (MayClose()) library_.UnInit();
    }

    bool Activate(std::uint32_t activation) { return library_.Activate(activation) != 0; }
    bool IsActivated() const { return library_.IsActivated() != 0; }
    bool EnableFeature(bool enable) { return library_.EnableFeature(enable) != 0; }
    bool IsFeatureEnabled() const { return library_.IsFeatureEnabled() != 0; }

    bool EnableButton(VelaButton button, bool enable) {
        return library_.EnableSingleButton(button, enable) != 0;
    }
    bool IsButtonEnabled(VelaButton button) const {
        return library_.IsSingleButtonEnabled(button) != 0;
    }
    bool SetVisible(VelaButton button, bool visible) {
        return library_.SetButtonVisible(button, visible) != 0;
    }
    bool SetLight(VelaButton button, bool on) { return library_.SetButtonLight(button, on) != 0; }

    bool EnableChatBreathing(bool enable) { return library_.EnableChatBreathing(enable) != 0; }
    bool IsChatBreathingEnabled() const { return library_.IsChatBreathingEnabled() != 0; }
    bool SetChatBreathing(bool on) {
        return library_.SetButtonBreathing(VELA_BUTTON_CHAT, on) != 0;
    }

    // Writes the lights as they are set. The library leaves a change out that brings back its last
    // light report; the touchpad may show another one since, as after a disable.
    bool WriteLights() { return library_.SetButtonBreathing(VELA_BUTTON_CAMERA, 0) != 0; }

    void SetBrightness(std::uint8_t level) { library_.SetVelaBrightness(level); }
    std::uint8_t Brightness() const {
        return static_cast<std::uint8_t>(library_.GetVelaBrightness());
    }

    bool SetClickMode(std::uint32_t mode, std::uint16_t value) {
        return library_.SetClickMode(mode, value) != 0;
    }
    bool IsClickModeOn() const { return library_.GetClickMode() != 0; }
    bool RequestState() { return library_.UpdateVelaState() != 0; }
    bool IsDetachable() const { return library_.IsDetachable() != 0; }
    bool SupportsBiDirectionSwipe() const { return library_.IsSupportBiDirectionSwipe() != 0; }

 private:
    const Library library_;
    const detail::HandlerSlot slot_;  // destroyed after UnInit, which may still call handlers
};

// The haptic touchpad, open for as long as this object lives. It must not be created or destroyed
// while another thread is inside one of its functions, nor while another one lives, whose touchpad
// it would close.
class Haptics : detail::SelfClosing {
 public:
    // Throws OpenError.
    explicit Haptics(Library library) : library_(std::move(library)) {
        if (library_.InitHapticTP() == 0) {
            throw OpenError(VELA_INIT_NOT_FOUND,
                            "no haptic touchpad with an intensity found, or it cannot be opened");
        }
    }
    ~Haptics() {
        if (MayClose()) library_.UnInitHapticTP();
    }

    std::uint32_t Level() const { return library_.GetHapticTPIntensityLevel(); }
    bool SetLevel(std::uint32_t level) { return library_.SetHapticTPIntensityLevel(level) != 0; }

 private:
    const Library library_;
};

// Ends the process without unloading libraries, as a host needs that had a detachable touchpad
// active; close its sessions first. Other static objects are not destroyed either.
[[noreturn]] inline void LeaveProcess(int exitCode) {
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
    std::abort();
}

}  // namespace vela_agent

#endif
