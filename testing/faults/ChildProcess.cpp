#include "testing/faults/ChildProcess.h"

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>

#if defined(__SANITIZE_THREAD__)
// A child that ends in std::terminate never reaches the exit at which races would be reported.
extern "C" const char* __tsan_default_options() { return "halt_on_error=1"; }
#endif

namespace faults {
namespace {

constexpr unsigned kSecondsToLive = 30;
constexpr int kTerminateAtExit = 98;
constexpr int kTerminateEarlier = 97;

std::atomic<bool> exiting{false};

void WriteAll(int file, const std::string& text) {
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t count = write(file, text.data() + done, text.size() - done);
        if (count > 0) {
            done += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            return;
        }
    }
}

[[noreturn]] void RunBody(const std::function<std::string()>& body, int output) {
    alarm(kSecondsToLive);
    std::set_terminate([] { _exit(exiting ? kTerminateAtExit : kTerminateEarlier); });
    WriteAll(output, body());
    close(output);
    exiting = true;
    std::exit(EXIT_SUCCESS);
}

std::string ReadAll(int file) {
    std::string text;
    char buffer[4096];
    for (;;) {
        const ssize_t count = read(file, buffer, sizeof buffer);
        if (count > 0) {
            text.append(buffer, static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            return text;
        }
    }
}

std::string DescribeEnd(int status) {
    if (WIFSIGNALED(status)) {
        const int number = WTERMSIG(status);
        return number == SIGALRM ? "hung" : "killed by signal " + std::to_string(number);
    }
    switch (const int code = WEXITSTATUS(status)) {
        case EXIT_SUCCESS:
            return "normal";
        case kTerminateAtExit:
            return "terminate";
        case kTerminateEarlier:
            return "terminate was called before the exit";
        default:
            return "exit code " + std::to_string(code);
    }
}

}  // namespace

ChildEnd RunInChild(const std::function<std::string()>& body) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no child process");
    if (child == 0) {
        close(ends[0]);
        RunBody(body, ends[1]);
    }
    close(ends[1]);
    ChildEnd result;
    result.output = ReadAll(ends[0]);
    close(ends[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    result.end = DescribeEnd(status);
    return result;
}

}  // namespace faults
