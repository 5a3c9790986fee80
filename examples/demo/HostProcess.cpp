#include "examples/demo/HostProcess.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>

namespace demo {
namespace {

constexpr std::chrono::seconds kTimeout{40};
// The prefixes of the lines with callbacks and results of the library.
const std::string kMessagePrefixes[] = {"callback: ", "answer: "};

// Returns the line without its prefix, or an empty text for the host's other lines.
std::string MessageIn(const std::string& line) {
    for (const std::string& prefix : kMessagePrefixes) {
        if (line.rfind(prefix, 0) == 0) return line.substr(prefix.size());
    }
    return {};
}

struct Pipe {
    HANDLE read = nullptr;
    HANDLE write = nullptr;
};

Pipe MakePipe() {
    SECURITY_ATTRIBUTES inheritable{sizeof(inheritable), nullptr, TRUE};
    Pipe pipe;
    if (!CreatePipe(&pipe.read, &pipe.write, &inheritable, 0)) {
        throw std::runtime_error("no pipe to the host");
    }
    return pipe;
}

}  // namespace

HostProcess::HostProcess(const std::filesystem::path& program,
                         const std::filesystem::path& logDirectory) {
    const Pipe toHost = MakePipe();
    const Pipe fromHost = MakePipe();
    SetHandleInformation(toHost.write, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(fromHost.read, HANDLE_FLAG_INHERIT, 0);

    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = toHost.read;
    startup.hStdOutput = fromHost.write;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    std::wstring commandLine =
        L"\"" + program.wstring() + L"\" \"" + logDirectory.wstring() + L"\"";
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                        nullptr, &startup, &started)) {
        throw std::runtime_error("cannot start " + program.string() + ", error " +
                                 std::to_string(GetLastError()));
    }
    CloseHandle(started.hThread);
    CloseHandle(toHost.read);
    CloseHandle(fromHost.write);
    process_ = started.hProcess;
    input_ = toHost.write;
    output_ = fromHost.read;
    reader_ = std::thread(&HostProcess::ReadLines, this);
}

HostProcess::~HostProcess() {
    CloseHandle(input_);
    reader_.join();
    CloseHandle(output_);
    CloseHandle(process_);
}

void HostProcess::ReadLines() {
    std::string text;
    char buffer[256];
    DWORD length = 0;
    while (ReadFile(output_, buffer, sizeof(buffer), &length, nullptr) && length > 0) {
        text.append(buffer, length);
        for (std::size_t end; (end = text.find('\n')) != std::string::npos;) {
            std::string line = text.substr(0, end);
            text.erase(0, end + 1);
            if (!line.empty() && line.back() == '\r') line.pop_back();
            const std::lock_guard<std::mutex> lock(mutex_);
            const std::string message = MessageIn(line);
            message.empty() ? lines_.push_back(line) : messages_.push_back(message);
            arrived_.notify_all();
        }
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    ended_ = true;
    arrived_.notify_all();
}

bool HostProcess::WaitForLine(const std::string& line) {
    std::unique_lock<std::mutex> lock(mutex_);
    const auto isThere = [&] {
        return std::find(lines_.begin(), lines_.end(), line) != lines_.end();
    };
    arrived_.wait_for(lock, kTimeout, [&] { return ended_ || isThere(); });
    return isThere();
}

void HostProcess::Send(const std::string& command) {
    const std::string line = command + "\n";
    DWORD written = 0;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        lines_.clear();
    }
    if (!WriteFile(input_, line.data(), static_cast<DWORD>(line.size()), &written, nullptr) ||
        !WaitForLine("host: done " + command)) {
        throw std::runtime_error("the host did not answer to \"" + command + "\"");
    }
}

std::vector<std::string> HostProcess::TakeMessages(std::size_t count) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (!arrived_.wait_for(lock, kTimeout, [&] { return ended_ || messages_.size() >= count; }) ||
        messages_.size() < count) {
        throw std::runtime_error("the host was told nothing");
    }
    std::vector<std::string> messages;
    messages.swap(messages_);
    return messages;
}

DWORD HostProcess::Wait() {
    DWORD code = 1;
    WaitForSingleObject(process_, INFINITE);
    GetExitCodeProcess(process_, &code);
    return code;
}

}  // namespace demo
