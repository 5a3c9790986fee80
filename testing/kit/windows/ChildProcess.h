// Starts this program again as a host process, which loads the DLL, runs one of the registered
// roles and exits as a host does.
#pragma once

#include <windows.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>

namespace kit {

// A child's main function. It logs to `folder`; its result is the exit code.
using ChildRole = int (*)(const std::filesystem::path& folder);

// Registers a role under a name. Defined at namespace scope.
struct RegisteredRole {
    RegisteredRole(const std::string& name, ChildRole role);
};

// Selects which of this process's handles a child gets: none, or the inheritable ones.
enum class Inherits : std::uint8_t { Nothing, Handles };

class ChildProcess {
 public:
    // Throws std::runtime_error when the process cannot be started.
    ChildProcess(const std::string& role, const std::filesystem::path& folder,
                 Inherits inherits = Inherits::Nothing);
    // Terminates a process that is still running.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Waits for the end and returns the exit code; STILL_ACTIVE when the process goes on.
    DWORD Wait(std::chrono::seconds timeout = std::chrono::seconds(30));
    void Terminate(DWORD exitCode);
    // Asks only Wine; false on Windows.
    bool HangsInWine() const;

 private:
    std::filesystem::path folder_;  // only this process has it in its command line
    HANDLE process_ = nullptr;
};

// Plays the role in a child process and returns its exit code; STILL_ACTIVE when it does not end in
// time. A child that hangs in Wine's own end of a process is played again.
DWORD ExitCodeOf(const std::string& role, const std::filesystem::path& folder);

// Let main check whether this process is a child, and run its role.
bool IsChildProcess(int argc, char** argv);
int PlayChildRole(char** argv);

}  // namespace kit
