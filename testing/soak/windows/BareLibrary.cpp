// A library that only uses the C++ runtime as the agent does: an exception, a thread, and a lock
// and a condition that are never destroyed, like the agent's logger. What it leaves behind after
// unloading is left by the runtime, which is linked into each library.
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace {

struct Meeting {
    std::mutex mutex;
    std::condition_variable condition;
    bool isThere = false;
};

}  // namespace

extern "C" __declspec(dllexport) void UseRuntime() {
    try {
        throw std::runtime_error("thrown to be caught");
    } catch (const std::runtime_error&) {
    }
    static Meeting& meeting = *new Meeting;
    std::unique_lock<std::mutex> lock(meeting.mutex);
    std::thread thread([] {
        const std::lock_guard<std::mutex> arriving(meeting.mutex);
        meeting.isThere = true;
        meeting.condition.notify_all();
    });
    meeting.condition.wait(lock, [] { return meeting.isThere; });
    lock.unlock();
    thread.join();
}
