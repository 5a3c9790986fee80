// VelaAgent for C++17 hosts on Windows: loads the library by its full path, and wraps its sessions
// so that they close themselves. Header-only; VelaAgent.h tells what every function does.
//
//     vela_agent::Library library(L"C:\\Program Files\\Host\\VelaAgent.dll");
//     vela_agent::Logger logger(library, L"C:\\Users\\Public\\Logs");
//     vela_agent::Session session(library, {[](VelaButton button, bool newLight) { ... },
//                                           [](std::uint32_t status) { ... }});
//     session.EnableFeature(true);
#ifndef VELA_AGENT_HPP
#define VELA_AGENT_HPP

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

// Every function of VelaAgent.h.
#define VELA_AGENT_FOR_EACH_EXPORT(X) \
    X(Activate)                       \
    X(EnableChatBreathing)            \
    X(EnableFeature)                  \
    X(EnableSingleButton)             \
    X(GetClickMode)                   \
    X(GetHapticTPIntensityLevel)      \
    X(GetVelaBrightness)              \
    X(Init)                           \
    X(InitHapticTP)                   \
    X(InitLogger)                     \
    X(IsActivated)                    \
    X(IsChatBreathingEnabled)         \
    X(IsDetachable)                   \
    X(IsFeatureEnabled)               \
    X(IsHapticTPPresent)              \
    X(IsSingleButtonEnabled)          \
    X(IsSupportBiDirectionSwipe)      \
    X(IsVelaPresent)                  \
    X(SetButtonBreathing)             \
    X(SetButtonLight)                 \
    X(SetButtonVisible)               \
    X(SetClickMode)                   \
    X(SetHapticTPIntensityLevel)      \
    X(SetVelaBrightness)              \
    X(SetVelaButtonPressCallback)     \
    X(SetVelaStatusChangeCallback)    \
    X(UnInit)                         \
    X(UnInitHapticTP)                 \
    X(UnInitLogger)                   \
    X(UpdateVelaState)

namespace vela_agent {

// The library cannot be loaded, or is not the one that this header is for.
class LoadError : public std::runtime_error {
 public:
    LoadError(std::filesystem::path file, std::string exportName, DWORD systemError)
        : std::runtime_error(Text(file, exportName, systemError)),
          file_(std::move(file)),
          exportName_(std::move(exportName)),
          systemError_(systemError) {}

    const std::filesystem::path& File() const { return file_; }
    // The function that is missing; empty when the file itself cannot be loaded.
    const std::string& ExportName() const { return exportName_; }
    // As GetLastError tells it.
    DWORD SystemError() const { return systemError_; }

 private:
    static std::string Text(const std::filesystem::path& file, const std::string& exportName,
                            DWORD error) {
        const std::string what = exportName.empty() ? "cannot load " : "no " + exportName + " in ";
        return what + Utf8(file.wstring()) + ": " +
               std::system_category().message(static_cast<int>(error)) + " (error " +
               std::to_string(error) + ")";
    }

    static std::string Utf8(const std::wstring& text) {
        const auto length = static_cast<int>(text.size());
        std::string utf8(text.size() * 3, '\0');  // the most that a wide character takes
        const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(),
                                             static_cast<int>(utf8.size()), nullptr, nullptr);
        utf8.resize(static_cast<std::size_t>(size));
        return utf8;
    }

    std::filesystem::path file_;
    std::string exportName_;
    DWORD systemError_;
};

// There is no touchpad to open, or it is not free.
class OpenError : public std::runtime_error {
 public:
    OpenError(VelaInitResult result, const std::string& text)
        : std::runtime_error(text), result_(result) {}
    VelaInitResult Result() const { return result_; }

 private:
    VelaInitResult result_;
};

// The functions of one loaded library: library.IsVelaPresent(). It stays loaded until the process
// ends (unloading would end a process that had a detachable touchpad active), so copies are free.
class Library {
 public:
    // `file` is an absolute path: nothing is searched, and what the library itself needs comes from
    // the system's folder only. Throws LoadError.
    explicit Library(const std::filesystem::path& file)
        : file_(file), module_(Load(std::filesystem::path(file).make_preferred())) {
#define VELA_AGENT_RESOLVE(name) Resolve(#name, this->name);
        VELA_AGENT_FOR_EACH_EXPORT(VELA_AGENT_RESOLVE)
#undef VELA_AGENT_RESOLVE
    }

    const std::filesystem::path& File() const { return file_; }
    HMODULE Module() const { return module_; }

#define VELA_AGENT_DECLARE(name) decltype(&::name) name = nullptr;
    VELA_AGENT_FOR_EACH_EXPORT(VELA_AGENT_DECLARE)
#undef VELA_AGENT_DECLARE

 private:
    static HMODULE Load(const std::filesystem::path& file) {
        if (!file.is_absolute()) throw LoadError(file, "", ERROR_BAD_PATHNAME);
        const HMODULE module = LoadLibraryExW(file.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
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

// Logs into a directory for as long as it lives.
class Logger {
 public:
    Logger(const Library& library, const std::filesystem::path& directory) : library_(library) {
        library_.InitLogger(directory.c_str());
    }
    ~Logger() { library_.UnInitLogger(); }
    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;

 private:
    const Library library_;
};

// What the touchpad's session calls, on the threads that VelaAgent.h tells. They may be empty, and
// must not throw.
struct Handlers {
    std::function<void(VelaButton button, bool newLight)> onPress;
    std::function<void(std::uint32_t status)> onStatus;
};

namespace detail {

// The library's callbacks carry no context, so the handlers of the one session are found here for
// as long as it lives. A call takes its share of them along: one that comes late finds none, and
// one that is under way keeps those that it runs.
class HandlerSlot {
 public:
    // Throws std::logic_error while another session lives.
    explicit HandlerSlot(Handlers handlers) {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (handlers_ != nullptr) throw std::logic_error("the touchpad's session is open already");
        handlers_ = std::make_shared<const Handlers>(std::move(handlers));
    }
    ~HandlerSlot() {
        std::shared_ptr<const Handlers> handlers;  // destroyed without the lock
        const std::lock_guard<std::mutex> lock(mutex_);
        handlers_.swap(handlers);
    }
    HandlerSlot(const HandlerSlot&) = delete;
    HandlerSlot& operator=(const HandlerSlot&) = delete;

    static std::shared_ptr<const Handlers> Share() {
        const std::lock_guard<std::mutex> lock(mutex_);
        return handlers_;
    }

 private:
    static inline std::mutex mutex_;  // guards: handlers_
    static inline std::shared_ptr<const Handlers> handlers_;
};

// An exception would have to cross the library, which knows of none: it ends the process here.
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

// The touchpad, open for as long as this lives; there is one at a time. Not to be destroyed by a
// handler, nor while another thread is inside one of its functions.
class Session {
 public:
    // Throws OpenError; std::logic_error while another session lives.
    explicit Session(const Library& library, Handlers handlers = {})
        : library_(library), slot_(std::move(handlers)) {
        const auto result = static_cast<VelaInitResult>(library_.Init());
        if (result != VELA_INIT_OPEN) {
            throw OpenError(result, result == VELA_INIT_HELD_BY_OTHER
                                        ? "the touchpad is held by another process"
                                        : "no touchpad found, or it cannot be opened");
        }
        library_.SetVelaButtonPressCallback(detail::OnPress);
        library_.SetVelaStatusChangeCallback(detail::OnStatus);
    }
    ~Session() { library_.UnInit(); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

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
    const detail::HandlerSlot slot_;  // given up after UnInit, which may still call
};

// The haptic touchpad, open for as long as this lives.
class Haptics {
 public:
    // Throws OpenError.
    explicit Haptics(const Library& library) : library_(library) {
        if (library_.InitHapticTP() == 0) {
            throw OpenError(VELA_INIT_NOT_FOUND,
                            "no haptic touchpad with an intensity found, or it cannot be opened");
        }
    }
    ~Haptics() { library_.UnInitHapticTP(); }
    Haptics(const Haptics&) = delete;
    Haptics& operator=(const Haptics&) = delete;

    std::uint32_t Level() const { return library_.GetHapticTPIntensityLevel(); }
    bool SetLevel(std::uint32_t level) { return library_.SetHapticTPIntensityLevel(level) != 0; }

 private:
    const Library library_;
};

// Ends the process without unloading libraries, once its sessions are closed: the way out for a
// host that had a detachable touchpad active. Other static objects are not destroyed either.
[[noreturn]] inline void LeaveProcess(int exitCode) {
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
    std::abort();
}

}  // namespace vela_agent

#undef VELA_AGENT_FOR_EACH_EXPORT

#endif
