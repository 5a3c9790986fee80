#include "testing/kit/HostCallbacks.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace kit {
namespace {

std::mutex mutex;  // guards: everything below
std::condition_variable called;
std::vector<std::string> calls;
std::thread::id lastThread;
std::function<void()> pressHook;
std::function<void()> statusHook;

void Note(std::string call, const std::function<void()>& hookSlot) {
    std::function<void()> hook;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        calls.push_back(std::move(call));
        lastThread = std::this_thread::get_id();
        hook = hookSlot;
        called.notify_all();
    }
    if (hook) hook();
}

}  // namespace

void OnButtonPress(std::uint32_t buttonId, std::uint32_t newLightState) {
    Note("press " + std::to_string(buttonId) + " " + std::to_string(newLightState), pressHook);
}

void OnStatusChange(std::uint32_t status) { Note("status " + std::to_string(status), statusHook); }

void HostCallbacks::Reset() {
    const std::lock_guard<std::mutex> lock(mutex);
    calls.clear();
    pressHook = nullptr;
    statusHook = nullptr;
}

std::vector<std::string> HostCallbacks::Calls() {
    const std::lock_guard<std::mutex> lock(mutex);
    return calls;
}

bool HostCallbacks::WaitForCalls(std::size_t count) {
    std::unique_lock<std::mutex> lock(mutex);
    return called.wait_for(lock, std::chrono::seconds(10),
                           [count] { return calls.size() >= count; });
}

std::thread::id HostCallbacks::LastThread() {
    const std::lock_guard<std::mutex> lock(mutex);
    return lastThread;
}

void HostCallbacks::DuringButtonPress(std::function<void()> hook) {
    const std::lock_guard<std::mutex> lock(mutex);
    pressHook = std::move(hook);
}

void HostCallbacks::DuringStatusChange(std::function<void()> hook) {
    const std::lock_guard<std::mutex> lock(mutex);
    statusHook = std::move(hook);
}

}  // namespace kit
