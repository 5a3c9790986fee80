#include "testing/kit/windows/ChildProcess.h"

#include <cstdio>
#include <map>
#include <stdexcept>

#include "testing/kit/windows/WineProcess.h"

namespace kit {
namespace {

constexpr char kRoleArgument[] = "--role";
constexpr DWORD kPatienceMs = 30000;

// The map is made on first use, because the roles of several files register before main.
std::map<std::string, ChildRole>& Roles() {
    static std::map<std::string, ChildRole> roles;
    return roles;
}

std::wstring ProgramPath() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

}  // namespace

RegisteredRole::RegisteredRole(const std::string& name, ChildRole role) { Roles()[name] = role; }

ChildProcess::ChildProcess(const std::string& role, const std::filesystem::path& folder,
                           Inherits inherits)
    : folder_(folder) {
    const std::wstring program = ProgramPath();
    std::wstring commandLine =
        L"\"" + program + L"\" " + std::filesystem::path(kRoleArgument).wstring() + L" " +
        std::filesystem::path(role).wstring() + L" \"" + folder.wstring() + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr,
                        inherits == Inherits::Handles, 0, nullptr, nullptr, &startup, &started)) {
        throw std::runtime_error("cannot start a child process, error " +
                                 std::to_string(GetLastError()));
    }
    CloseHandle(started.hThread);
    process_ = started.hProcess;
}

ChildProcess::~ChildProcess() {
    Terminate(1);
    CloseHandle(process_);
}

DWORD ChildProcess::Wait(std::chrono::seconds timeout) {
    WaitForSingleObject(process_, static_cast<DWORD>(std::chrono::milliseconds(timeout).count()));
    DWORD exitCode = STILL_ACTIVE;
    GetExitCodeProcess(process_, &exitCode);
    return exitCode;
}

void ChildProcess::Terminate(DWORD exitCode) {
    TerminateProcess(process_, exitCode);
    WaitForSingleObject(process_, kPatienceMs);
}

bool ChildProcess::HangsInWine() const { return kit::HangsInWine(folder_.string()); }

DWORD ExitCodeOf(const std::string& role, const std::filesystem::path& folder) {
    constexpr int kMostTries = 3;
    for (int tries = 1;; ++tries) {
        ChildProcess host(role, folder);
        const DWORD exitCode = host.Wait();
        if (exitCode != STILL_ACTIVE || tries == kMostTries || !host.HangsInWine()) return exitCode;
    }
}

bool IsChildProcess(int argc, char** argv) {
    return argc == 4 && std::string(argv[1]) == kRoleArgument;
}

int PlayChildRole(char** argv) {
    const auto role = Roles().find(argv[2]);
    if (role == Roles().end()) {
        std::fprintf(stderr, "no role %s\n", argv[2]);
        return 1;
    }
    return role->second(argv[3]);
}

}  // namespace kit
