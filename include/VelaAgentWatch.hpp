// Keeps the touchpad as the host wants it, whatever happens to it: vela_agent::Watch opens it when
// it arrives, closes it when it leaves, and after every arrival and resume from sleep sets again
// what the host has set. For C++17 hosts, over VelaAgent.hpp; link with hid, setupapi and user32.
//
//     vela_agent::Library library(L"C:\\Program Files\\Host\\VelaAgent.dll");
//     vela_agent::Watch watch(library, {[](VelaButton button, bool newLight) { ... }});
//     watch.Change([](vela_agent::Settings& settings) {
//         settings.activation = VELA_ACTIVE;
//         settings.feature = true;
//         settings.buttons[VELA_BUTTON_CAMERA] = {true, true, false};
//     });
#ifndef VELA_AGENT_WATCH_HPP
#define VELA_AGENT_WATCH_HPP

#include "VelaAgentDevices.hpp"
#include "VelaAgentExit.hpp"
#include "VelaAgentSettings.hpp"

#pragma push_macro("min")
#pragma push_macro("max")
#undef min
#undef max

#include <chrono>
#include <condition_variable>
#include <optional>
#include <set>

#pragma pop_macro("max")
#pragma pop_macro("min")

namespace vela_agent {

// What a watch notifies the host of. Presses and statuses come on the threads that VelaAgent.h
// names, the others on the watch's own thread. All may be empty, must not throw, and may call every
// function of the watch; none may destroy it, nor wait for a thread that does.
struct WatchHandlers {
    std::function<void(VelaButton button, bool newLight)> onPress;
    std::function<void(std::uint32_t status)> onStatus;
    std::function<void()> onFound;        // the touchpad is open and shows the settings
    std::function<void()> onLost;         // it was open and is gone
    std::function<void()> onHeldByOther;  // another program has it open
};

namespace detail {

// The thread of a watch: the only one that opens and closes the session, and that sets anything.
class Watcher {
 public:
    Watcher(Library library, WatchHandlers handlers)
        : library_(std::move(library)), handlers_(std::move(handlers)) {
        if (!window_.AreOn()) manager_.emplace(events_);
        if (IsNotified()) RememberTouchpads();
        thread_ = std::thread([this] { Run(); });
    }
    ~Watcher() {
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            stop_ = true;
            changed_.notify_all();
        }
        thread_.join();
    }
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    bool IsNotified() const { return window_.AreOn() || manager_->AreOn(); }

    void Change(const std::function<void(Settings& settings)>& change) {
        const std::lock_guard<std::mutex> lock(mutex_);
        change(settings_);
        changed_.notify_all();
    }
    Settings Current() const {
        const std::lock_guard<std::mutex> lock(mutex_);
        return settings_;
    }
    bool IsOpen() const {
        const std::lock_guard<std::mutex> lock(mutex_);
        return isOpen_;
    }
    void Refresh() {
        const std::lock_guard<std::mutex> lock(mutex_);
        tries_ = 0;
        reopens_ = true;
        changed_.notify_all();
    }

 private:
    using Lock = std::unique_lock<std::mutex>;
    using Clock = std::chrono::steady_clock;
    using Time = Clock::time_point;

    // A device has several interfaces, of which the first may come before the system opens them.
    static constexpr std::chrono::milliseconds kSettling{20};
    // The pauses between tries double from the first: 12.7 s in all.
    static constexpr std::chrono::milliseconds kFirstPause{50};
    static constexpr int kMostTries = 9;

    // --- on the threads of the notifications ---
    static std::wstring Folded(std::wstring path) {
        for (wchar_t& letter : path) {
            if (letter >= L'A' && letter <= L'Z') letter += L'a' - L'A';
        }
        return path;
    }
    void RememberTouchpads() {
        for (const std::wstring& path : HidInterfacePaths()) {
            if (!MayBeTouchpad(path)) continue;
            const std::lock_guard<std::mutex> lock(mutex_);
            touchpads_.insert(Folded(path));
        }
    }
    void OnArrival(const std::wstring& path) {
        if (!MayBeTouchpad(path)) return;
        const std::lock_guard<std::mutex> lock(mutex_);
        touchpads_.insert(Folded(path));
        tries_ = 0;
        opensAt_ = Clock::now() + kSettling;
        changed_.notify_all();
    }
    // The session does not say which touchpad it has: when one of two leaves, it is opened again.
    void OnRemoval(const std::wstring& path) {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (touchpads_.erase(Folded(path)) == 0) return;
        reopens_ = true;
        changed_.notify_all();
    }

    // --- on the threads of the session ---
    void OnPress(VelaButton button, bool newLight) {
        FollowLight(button, newLight);
        if (handlers_.onPress) handlers_.onPress(button, newLight);
    }
    // While settings are being set it is not known which of them the press met.
    void FollowLight(VelaButton button, bool newLight) {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (isApplying_ || applied_.activation != settings_.activation) SetAgainSoon();
        const bool toggles = button == VELA_BUTTON_CAMERA || button == VELA_BUTTON_MICROPHONE;
        if (!toggles || settings_.activation == VELA_ACTIVE_HOST_SETS_LIGHTS) return;
        settings_.buttons[button].light = newLight;
        applied_.buttons[button].light = newLight;
    }
    void OnStatus(std::uint32_t status) {
        if (std::this_thread::get_id() != ownThread_) FollowBreathing(status);
        if (handlers_.onStatus) handlers_.onStatus(status);
    }
    // The end of a disable ends the chat's breathing. So does a resynchronisation, which is no
    // change of the status: the chat is to breathe on then. The session may stop it only after the
    // status, so a host that sets it at once gets it a little later.
    void FollowBreathing(std::uint32_t status) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const std::uint32_t before = std::exchange(status_, status);
        const bool endsDisable =
            (before == VELA_STATUS_DISABLED && status != VELA_STATUS_DISABLED) ||
            (before == VELA_STATUS_TEMPORARILY_DISABLED && status == VELA_STATUS_NORMAL);
        if (!endsDisable && status != VELA_STATUS_NORMAL) return;
        if (endsDisable && settings_.chatBreathing) {
            settings_.chatBreathing = false;
            applied_.chatBreathing = true;
        }
        SetAgainSoon();
    }
    void SetAgainSoon() {
        setsAgainAt_ = Clock::now() + kSettling;
        changed_.notify_all();
    }

    // --- on the watch's thread ---
    void Run() {
        ownThread_ = std::this_thread::get_id();
        Lock lock(mutex_);
        opensAt_ = Clock::now();
        while (!stop_) {
            if (std::exchange(reopens_, false)) {
                Reopen(lock);
            } else if (isOpen_ ? IsOver(setsAgainAt_) : IsOver(opensAt_)) {
                isOpen_ ? SetAgain() : Open(lock);
            } else if (isOpen_ && !(settings_ == applied_)) {
                ApplySettings(lock);
            } else if (const std::optional<Time> next = isOpen_ ? setsAgainAt_ : opensAt_) {
                changed_.wait_until(lock, *next);
            } else {
                changed_.wait(lock);
            }
        }
        Close(lock);
    }
    // Forgets a time that is over.
    static bool IsOver(std::optional<Time>& time) {
        if (!time || Clock::now() < *time) return false;
        time.reset();
        return true;
    }
    // Sets what a press, or the end of a disable, may have changed after it was set.
    void SetAgain() {
        for (const VelaButton button : {VELA_BUTTON_CAMERA, VELA_BUTTON_MICROPHONE}) {
            applied_.buttons[button].light = !settings_.buttons[button].light;
        }
        if (settings_.chatBreathing) applied_.chatBreathing = false;
    }

    void Close(Lock& lock) {
        isOpen_ = false;
        lock.unlock();
        session_.reset();
        lock.lock();
    }

    // The host is notified only when the touchpad is gone then.
    void Reopen(Lock& lock) {
        const bool wasOpen = isOpen_;
        Close(lock);
        TryOpen(lock);
        if (isOpen_ != wasOpen) Notify(lock, isOpen_ ? handlers_.onFound : handlers_.onLost);
        if (isHeld_) Notify(lock, handlers_.onHeldByOther);
    }

    void Open(Lock& lock) {
        const bool isKnown = isHeld_ && tries_ > 0;
        TryOpen(lock);
        if (isOpen_) Notify(lock, handlers_.onFound);
        if (isHeld_ && !isKnown) Notify(lock, handlers_.onHeldByOther);
    }

    void TryOpen(Lock& lock) {
        opensAt_.reset();
        isHeld_ = false;
        if (IsNotified() && touchpads_.empty()) return;  // without a scan
        setsAgainAt_.reset();
        status_ = VELA_STATUS_NORMAL;
        const Settings wanted = settings_;
        applied_ = wanted;
        isApplying_ = true;
        lock.unlock();
        VelaInitResult result = VELA_INIT_OPEN;
        try {
            session_ = std::make_unique<Session>(
                library_,
                Handlers{[this](VelaButton button, bool light) { OnPress(button, light); },
                         [this](std::uint32_t status) { OnStatus(status); }});
            Replay(*session_, wanted);
            PrepareExit();
        } catch (const OpenError& error) {
            result = error.Result();
        } catch (const std::logic_error&) {
            result = VELA_INIT_HELD_BY_OTHER;  // by a Session of the host's own
        }
        lock.lock();
        isOpen_ = result == VELA_INIT_OPEN;
        isHeld_ = result == VELA_INIT_HELD_BY_OTHER;
        isApplying_ = false;
        if (!isOpen_ && !opensAt_ && ++tries_ < kMostTries) {
            opensAt_ = Clock::now() + kFirstPause * (1 << (tries_ - 1));
        }
    }

    void ApplySettings(Lock& lock) {
        // What the session changes meanwhile differs from then on, and is set again.
        const Settings old = std::exchange(applied_, settings_);
        const Settings now = settings_;
        isApplying_ = true;
        lock.unlock();
        Apply(*session_, old, now);
        PrepareExit();
        lock.lock();
        isApplying_ = false;
    }

    // A touchpad that is away counts as detachable too.
    void PrepareExit() const {
        if (session_->IsDetachable()) OrderlyExit::Prepare();
    }

    static void Notify(Lock& lock, const std::function<void()>& handler) {
        if (!handler) return;
        lock.unlock();
        handler();
        lock.lock();
    }

    const Library library_;
    const WatchHandlers handlers_;
    std::unique_ptr<Session> session_;  // the watch's thread's
    std::thread::id ownThread_;         // set before there is a session whose callbacks read it

    mutable std::mutex mutex_;  // guards: all below, up to the notifications
    std::condition_variable changed_;
    Settings settings_;
    Settings applied_;  // as far as the session has them
    std::uint32_t status_ = VELA_STATUS_NORMAL;
    std::set<std::wstring> touchpads_;  // paths of interfaces that may be touchpads, in lower case
    bool isOpen_ = false;
    bool isHeld_ = false;  // by another program, as the last try found
    bool isApplying_ = false;
    bool reopens_ = false;
    bool stop_ = false;
    int tries_ = 0;                    // that failed in a row
    std::optional<Time> opensAt_;      // the next try
    std::optional<Time> setsAgainAt_;  // what may have changed meanwhile is set again

    const DeviceEvents events_{[this](const std::wstring& path) { OnArrival(path); },
                               [this](const std::wstring& path) { OnRemoval(path); },
                               [this] { Refresh(); }};
    WindowNotifications window_{events_};
    std::optional<ManagerNotifications> manager_;
    std::thread thread_;
};

}  // namespace detail

// The touchpad as the host wants it, for as long as this object lives; no Session and no second
// watch may exist meanwhile. Any thread may call its functions at any time, also in a handler, and
// also while there is no touchpad. Destroying it darkens and closes the touchpad. That waits for an
// opening or a closing that is under way: usually milliseconds, up to 30 seconds for each write
// when a touchpad takes none.
//
// A process may end as it likes after a detachable touchpad too, and keeps its exit code, if the
// thread that ends it has used or destroyed the watch since. The libraries of the process are then
// not notified of its end.
class Watch : detail::SelfClosing {
 public:
    explicit Watch(Library library, WatchHandlers handlers = {})
        : watcher_(std::make_unique<detail::Watcher>(std::move(library), std::move(handlers))) {}
    ~Watch() {
        if (!MayClose()) static_cast<void>(watcher_.release());
        watcher_.reset();
        detail::OrderlyExit::CoverThisThread();
    }

    // Changes the settings, all at once; the touchpad follows on the watch's thread. `change` is
    // called before the function returns, and must not call the watch. The light of camera and
    // microphone is also changed by presses, and the chat's breathing by the end of a disable.
    void Change(const std::function<void(Settings& settings)>& change) { Use().Change(change); }
    // Returns the settings, with what presses have changed.
    Settings Current() const { return Use().Current(); }
    // Returns whether the touchpad is open.
    bool IsOpen() const { return Use().IsOpen(); }
    // Closes the touchpad, opens it and sets everything again; without one, looks for it. For a
    // host that knows of a reason that the watch is not notified of, as another program that has
    // let the touchpad go.
    void Refresh() { Use().Refresh(); }
    // Returns false where neither kind of notification works. The host then calls Refresh when a
    // device arrived or left, and after a resume.
    bool IsNotified() const { return Use().IsNotified(); }

 private:
    detail::Watcher& Use() const {
        detail::OrderlyExit::CoverThisThread();
        return *watcher_;
    }

    std::unique_ptr<detail::Watcher> watcher_;
};

}  // namespace vela_agent

#endif
