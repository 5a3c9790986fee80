#include "testing/simulator/Notifications.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <dbt.h>

namespace simulator {
namespace {

std::vector<std::uint64_t> InterfaceRecord(const std::wstring& path) {
    const std::size_t nameSize = (path.size() + 1) * sizeof(wchar_t);
    const std::size_t size = sizeof(DEV_BROADCAST_DEVICEINTERFACE_W) + nameSize;
    std::vector<std::uint64_t> record(size / sizeof(std::uint64_t) + 1);
    auto* const broadcast = reinterpret_cast<DEV_BROADCAST_DEVICEINTERFACE_W*>(record.data());
    broadcast->dbcc_size = static_cast<DWORD>(size);
    broadcast->dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
    std::memcpy(broadcast->dbcc_name, path.c_str(), nameSize);
    return record;
}

Message MessageOf(HWND window, Notice notice, const std::wstring& path) {
    if (notice == Notice::Resume) {
        return {window, WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0, {}};
    }
    const WPARAM what = notice == Notice::Arrival ? DBT_DEVICEARRIVAL : DBT_DEVICEREMOVECOMPLETE;
    return {window, WM_DEVICECHANGE, what, 0, InterfaceRecord(path)};
}

}  // namespace

Notifications& Notifications::Get() {
    static Notifications& notifications = *new Notifications;
    return notifications;
}

void Notifications::Notify(Notice notice, const std::wstring& path) {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        for (const auto& [handle, window] : windows_) {
            const bool wants = notice == Notice::Resume ? window.wantsResume : window.wantsDevices;
            if (wants) queues_[window.thread].push_back(MessageOf(handle, notice, path));
        }
        posted_.notify_all();
    }
    const std::lock_guard<std::mutex> lock(callMutex_);
    for (const auto& [handle, subscriber] : subscribers_) subscriber(notice, path);
}

void* Notifications::Subscribe(Subscriber subscriber) {
    const std::lock_guard<std::mutex> lock(callMutex_);
    void* const handle = reinterpret_cast<void*>(++lastSubscription_);
    subscribers_[handle] = std::move(subscriber);
    return handle;
}

bool Notifications::Unsubscribe(void* handle) {
    const std::lock_guard<std::mutex> lock(callMutex_);
    return subscribers_.erase(handle) != 0;
}

void Notifications::AddClass(const std::wstring& name, WNDPROC procedure) {
    const std::lock_guard<std::mutex> lock(mutex_);
    classes_[name] = procedure;
}

HWND Notifications::CreateWindowOf(const std::wstring& className) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = classes_.find(className);
    if (found == classes_.end()) return nullptr;
    auto* const window = reinterpret_cast<HWND>(++lastHandle_);
    windows_[window] = {found->second, std::this_thread::get_id()};
    return window;
}

bool Notifications::Destroy(HWND window) {
    const std::lock_guard<std::mutex> lock(mutex_);
    return windows_.erase(window) != 0;
}

bool Notifications::RegisterFor(HWND window, Notice notice) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = windows_.find(window);
    if (found == windows_.end()) return false;
    (notice == Notice::Resume ? found->second.wantsResume : found->second.wantsDevices) = true;
    return true;
}

bool Notifications::Post(Message message) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = windows_.find(message.window);
    if (found == windows_.end()) return false;
    queues_[found->second.thread].push_back(std::move(message));
    posted_.notify_all();
    return true;
}

bool Notifications::SetUserData(HWND window, LONG_PTR value, LONG_PTR& before) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = windows_.find(window);
    if (found == windows_.end()) return false;
    before = std::exchange(found->second.userData, value);
    return true;
}

LONG_PTR Notifications::UserData(HWND window) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = windows_.find(window);
    return found == windows_.end() ? 0 : found->second.userData;
}

WNDPROC Notifications::Procedure(HWND window) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = windows_.find(window);
    return found == windows_.end() ? nullptr : found->second.procedure;
}

void Notifications::PostQuit(int exitCode) {
    const std::lock_guard<std::mutex> lock(mutex_);
    queues_[std::this_thread::get_id()].push_back(
        {nullptr, WM_QUIT, static_cast<WPARAM>(exitCode), 0, {}});
    posted_.notify_all();
}

Message Notifications::Take() {
    std::unique_lock<std::mutex> lock(mutex_);
    std::deque<Message>& queue = queues_[std::this_thread::get_id()];
    posted_.wait(lock, [&] { return !queue.empty(); });
    Message message = std::move(queue.front());
    queue.pop_front();
    return message;
}

std::size_t Notifications::Windows() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return windows_.size();
}

}  // namespace simulator
