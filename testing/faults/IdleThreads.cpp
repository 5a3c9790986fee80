#include "testing/faults/IdleThreads.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>

namespace faults {
namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

// Reads one of the kernel's files about a thread; empty when the thread has just ended.
std::string Read(const std::string& thread, const char* name) {
    const int file = open(("/proc/self/task/" + thread + "/" + name).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return "";
    char text[128];
    const ssize_t length = read(file, text, sizeof text);
    close(file);
    return length > 0 ? std::string(text, static_cast<std::size_t>(length)) : "";
}

// The state is the letter after the thread's name in parentheses.
bool Sleeps(const std::string& thread) {
    const std::string line = Read(thread, "stat");
    const std::size_t state = line.rfind(')') + 2;
    return state < line.size() && line[state] == 'S';
}

// Returns how often each other thread has run so far; nothing while one of them is awake.
std::optional<std::string> RunsOfSleepers() {
    const std::string own = std::to_string(syscall(SYS_gettid));
    const std::unique_ptr<DIR, CloseDirectory> threads(opendir("/proc/self/task"));
    if (threads == nullptr) return std::nullopt;
    std::string runs;
    while (const dirent* const entry = readdir(threads.get())) {
        const std::string thread = entry->d_name;
        if (thread[0] == '.' || thread == own) continue;
        if (!Sleeps(thread)) return std::nullopt;
        runs += thread + " " + Read(thread, "schedstat");
    }
    return runs;
}

}  // namespace

// The threads are examined one by one; one examined later may have woken an earlier one before it
// fell asleep. Only two passes in which all sleep, and none has run in between, prove that all
// sleep at the same time.
void WaitUntilOthersSleep() {
    std::optional<std::string> before;
    for (;;) {
        std::optional<std::string> now = RunsOfSleepers();
        if (now && now == before) return;
        before = std::move(now);
        std::this_thread::yield();
    }
}

}  // namespace faults
