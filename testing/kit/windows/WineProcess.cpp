#include "testing/kit/windows/WineProcess.h"

#include <windows.h>

#include <filesystem>
#include <sstream>

#include "testing/kit/TemporaryFolder.h"

namespace kit {
namespace {

// Wine shows the whole file system of the machine as drive Z.
const std::filesystem::path kProcesses = "Z:\\proc";

std::filesystem::path FindProcess(const std::string& argument) {
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator(kProcesses, missing)) {
        if (FileText(entry.path() / "cmdline").find(argument) != std::string::npos) return entry;
    }
    return {};
}

// Ticks of the clock, usually hundredths of a second, that the process has run.
long ProcessorTime(const std::filesystem::path& process) {
    const std::string stat = FileText(process / "stat");
    // The fields before are the process id and, in parentheses, the program's name.
    std::istringstream fields(stat.substr(stat.rfind(')') + 1));
    std::string skipped;
    for (int field = 3; field < 14; ++field) fields >> skipped;
    long user = 0;
    long system = 0;
    fields >> user >> system;
    return user + system;
}

// The first thread's system call: its number and arguments, in hexadecimal but for the number. The
// C library's mutexes wait while their word is 2, Wine's own locks while it is 0.
bool WaitsForMutexBelowWine(const std::filesystem::path& process) {
    std::istringstream call(FileText(process / "syscall"));
    std::string number;
    std::string address;
    std::string operation;
    std::string value;
    call >> number >> address >> operation >> value;
    return number == "202" && operation == "0x80" && value == "0x2";  // futex, to wait
}

}  // namespace

bool HangsInWine(const std::string& argument) {
    const std::filesystem::path process = FindProcess(argument);
    if (process.empty()) return false;
    if (WaitsForMutexBelowWine(process)) return true;
    const long before = ProcessorTime(process);
    Sleep(1000);
    return ProcessorTime(process) - before >= 10;
}

}  // namespace kit
