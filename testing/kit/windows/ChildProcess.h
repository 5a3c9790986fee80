// Host processes of a test's own: this program once more, which then loads the DLL, plays one of
// the registered roles and leaves as a host leaves.
#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <string>

namespace kit {

// What a child does. `folder` is where it logs; the result is its exit code.
using ChildRole = int (*)(const std::filesystem::path& folder);

// At namespace scope: makes a role known under a name.
struct RegisteredRole {
    RegisteredRole(const std::string& name, ChildRole role);
};

// Which of this process's handles a child gets: those that are inheritable, or none.
enum class Inherits : std::uint8_t { Nothing, Handles };

class ChildProcess {
 public:
    // Throws std::runtime_error when it cannot be started.
    ChildProcess(const std::string& role, const std::filesystem::path& folder,
                 Inherits inherits = Inherits::Nothing);
    // Ends it if need be.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Its exit code; STILL_ACTIVE when it does not come to an end within half a minute.
    DWORD Wait();
    void Terminate(DWORD exitCode);

 private:
    HANDLE process_ = nullptr;
};

// For main: whether this process is a child, and the playing of its role.
bool IsChildProcess(int argc, char** argv);
int PlayChildRole(char** argv);

}  // namespace kit
