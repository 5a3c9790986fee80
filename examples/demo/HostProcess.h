// A conferencing host in a process of its own, told what to do over its standard input.
#pragma once

#include <windows.h>

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace demo {

class HostProcess {
 public:
    // Throws std::runtime_error when it cannot be started.
    HostProcess(const std::filesystem::path& program, const std::filesystem::path& logDirectory);
    // Closes its input, upon which the host leaves.
    ~HostProcess();
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;

    // Sends a command line and waits until the host has answered "host: done <command>".
    void Tell(const std::string& command);
    // What the host was told since the last call, by callbacks and in answer to what it asked,
    // after waiting for at least `count` lines.
    std::vector<std::string> Told(std::size_t count);
    // Waits for the end and returns the exit code.
    DWORD Wait();

 private:
    void ReadLines();
    bool WaitForLine(const std::string& line);

    HANDLE process_ = nullptr;
    HANDLE input_ = nullptr;
    HANDLE output_ = nullptr;
    std::mutex mutex_;  // guards: lines_, told_ and ended_
    std::condition_variable arrived_;
    std::vector<std::string> lines_;
    std::vector<std::string> told_;
    bool ended_ = false;
    std::thread reader_;
};

}  // namespace demo
