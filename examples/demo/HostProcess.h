// A conferencing host in a process of its own, which reads commands from its standard input.
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
    // Closes its input, which makes the host exit.
    ~HostProcess();
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;

    // Sends a command line and waits until the host has printed "host: done <command>".
    void Send(const std::string& command);
    // Returns the callbacks and results that the host has printed since the last call, after
    // waiting for at least `count` lines.
    std::vector<std::string> TakeMessages(std::size_t count);
    // Waits for the end and returns the exit code.
    DWORD Wait();

 private:
    void ReadLines();
    bool WaitForLine(const std::string& line);

    HANDLE process_ = nullptr;
    HANDLE input_ = nullptr;
    HANDLE output_ = nullptr;
    std::mutex mutex_;  // guards: lines_, messages_ and ended_
    std::condition_variable arrived_;
    std::vector<std::string> lines_;
    std::vector<std::string> messages_;
    bool ended_ = false;
    std::thread reader_;
};

}  // namespace demo
