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

}  // namespace

bool IsSpinningOnWine(const std::string& argument) {
    const std::filesystem::path process = FindProcess(argument);
    if (process.empty()) return false;
    const long before = ProcessorTime(process);
    Sleep(1000);
    return ProcessorTime(process) - before >= 10;
}

}  // namespace kit
