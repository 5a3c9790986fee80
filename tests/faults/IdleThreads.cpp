#include "tests/faults/IdleThreads.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <memory>
#include <string>
#include <string_view>
#include <thread>

namespace faults {
namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

// The kernel's word for the thread, behind its name in parentheses. A thread that has just ended
// has no file any more.
bool Sleeps(const std::string& thread) {
    const int file = open(("/proc/self/task/" + thread + "/stat").c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    char text[128];
    const ssize_t length = read(file, text, sizeof text);
    close(file);
    if (length <= 0) return false;
    const std::string_view line(text, static_cast<std::size_t>(length));
    const std::size_t state = line.rfind(')') + 2;
    return state < line.size() && line[state] == 'S';
}

bool OthersSleep() {
    const std::string own = std::to_string(syscall(SYS_gettid));
    const std::unique_ptr<DIR, CloseDirectory> threads(opendir("/proc/self/task"));
    if (threads == nullptr) return false;
    while (const dirent* const entry = readdir(threads.get())) {
        const std::string thread = entry->d_name;
        if (thread[0] != '.' && thread != own && !Sleeps(thread)) return false;
    }
    return true;
}

}  // namespace

void WaitUntilOthersSleep() {
    while (!OthersSleep()) std::this_thread::yield();
}

}  // namespace faults
