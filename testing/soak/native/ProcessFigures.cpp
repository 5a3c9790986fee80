#include "testing/soak/ProcessFigures.h"

#include <malloc.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include "testing/simulator/Machine.h"

#if defined(__SANITIZE_ADDRESS__)
// Not every compiler has the header with these declarations.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
extern "C" int __lsan_do_recoverable_leak_check();
#endif

namespace soak {
namespace {

// Converts the simulator's name of a handle, "event#7", to the platform's name of its kind.
std::string KindOf(const std::string& handle) {
    const std::string kind = handle.substr(0, handle.find('#'));
    if (kind == "file") return "File";
    if (kind == "event") return "Event";
    return kind == "mutex" ? "Mutant" : kind;
}

// Reads a thread's "123 (name) S 1 ...", whose seventh column after the name has its flags. The
// file of a thread that has ended reads as empty.
bool IsEnding(const std::filesystem::path& thread) {
    constexpr unsigned kEnding = 0x4;  // the kernel's PF_EXITING
    std::ifstream stat(thread / "stat");
    stat.ignore((std::numeric_limits<std::streamsize>::max)(), ')');
    std::string ignored;
    for (int column = 1; column < 7; ++column) stat >> ignored;
    unsigned flags = kEnding;
    stat >> flags;
    return (flags & kEnding) != 0;
}

}  // namespace

std::map<std::string, std::int64_t> OpenHandles() {
    std::map<std::string, std::int64_t> handles;
    for (const std::string& handle : simulator::Machine::Get().OpenHandles()) {
        ++handles[KindOf(handle)];
    }
    return handles;
}

// The kernel may still list a joined thread for a while as it ends.
std::int64_t ThreadCount() {
    std::int64_t count = 0;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        if (!IsEnding(thread.path())) ++count;
    }
    return count;
}

std::int64_t HeapInUse() {
#if defined(__SANITIZE_ADDRESS__)
    return static_cast<std::int64_t>(__sanitizer_get_current_allocated_bytes());
#else
    return static_cast<std::int64_t>(mallinfo2().uordblks);
#endif
}

void LeaveAtOnce(int exitCode) {
#if defined(__SANITIZE_ADDRESS__)
    if (__lsan_do_recoverable_leak_check() != 0) exitCode = 1;
#endif
    std::_Exit(exitCode);
}

}  // namespace soak
