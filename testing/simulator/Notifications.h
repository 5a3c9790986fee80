// What the simulated system notifies programs of: HID interfaces that arrive and leave, and the
// resume from sleep. Windows receive it as messages, in order, in the thread that created them;
// subscribers, as the configuration manager has them, are called on the test's thread.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <windows.h>

namespace simulator {

enum class Notice { Arrival, Removal, Resume };

struct Message {
    HWND window;
    UINT id;
    WPARAM what;
    LPARAM data;
    // What `data` points to in a message that is sent; empty for a posted one.
    std::vector<std::uint64_t> record;
};

class Notifications {
 public:
    // There is one for the process. It is never destroyed.
    static Notifications& Get();

    using Subscriber = std::function<void(Notice notice, const std::wstring& path)>;

    // Notifies every window and subscriber that has registered for it. `path` is an interface's;
    // empty for a resume.
    void Notify(Notice notice, const std::wstring& path);
    void* Subscribe(Subscriber subscriber);
    // Waits for a call that is under way. Returns false for an unknown handle.
    bool Unsubscribe(void* handle);

    // Windows belong to the thread that creates them.
    void AddClass(const std::wstring& name, WNDPROC procedure);
    HWND CreateWindowOf(const std::wstring& className);  // null for an unknown class
    // Also ends its registrations. These return false for an unknown window.
    bool Destroy(HWND window);
    bool RegisterFor(HWND window, Notice notice);
    bool Post(Message message);
    bool SetUserData(HWND window, LONG_PTR value, LONG_PTR& before);
    LONG_PTR UserData(HWND window);
    WNDPROC Procedure(HWND window);  // null for an unknown window
    void PostQuit(int exitCode);
    // Waits for the calling thread's next message.
    Message Take();
    // Windows that exist, for tests.
    std::size_t Windows();

 private:
    struct Window {
        WNDPROC procedure = nullptr;
        std::thread::id thread;
        LONG_PTR userData = 0;
        bool wantsDevices = false;
        bool wantsResume = false;
    };

    std::mutex mutex_;  // guards: all below, up to callMutex_
    std::condition_variable posted_;
    std::map<std::wstring, WNDPROC> classes_;
    std::map<HWND, Window> windows_;
    std::map<std::thread::id, std::deque<Message>> queues_;
    std::uintptr_t lastHandle_ = 0;

    std::mutex callMutex_;  // guards: all below; held while subscribers are called
    std::map<void*, Subscriber> subscribers_;
    std::uintptr_t lastSubscription_ = 0;
};

}  // namespace simulator
