#include "testing/faults/HostLog.h"

#include <fstream>

#include "testing/kit/native/AgentLog.h"

namespace faults {
namespace {

// "[2024-05-06 17:42:10] "
constexpr std::size_t kStampLength = 22;

void AppendLines(const std::filesystem::path& file, std::vector<std::string>& lines) {
    std::ifstream stream(file, std::ios::binary);
    // The bytes that OverfillLog wrote hold no lines.
    std::error_code missing;
    const std::uintmax_t size = std::filesystem::file_size(file, missing);
    if (!missing && size >= kOverfullLogSize) stream.seekg(kOverfullLogSize);
    for (std::string line; std::getline(stream, line);) {
        const bool whole =
            line.size() > kStampLength && line[0] == '[' && line[20] == ']' && line.back() == '\r';
        lines.push_back(whole ? line.substr(kStampLength, line.size() - kStampLength - 1)
                              : "not a log line: " + line);
    }
}

}  // namespace

std::filesystem::path MakeLogDirectory(const std::filesystem::path& folder) {
    std::filesystem::remove_all(folder);
    const std::filesystem::path directory = folder / "log";
    std::filesystem::create_directories(directory);
    return directory;
}

void OverfillLog(const std::filesystem::path& directory) {
    const std::filesystem::path file = kit::LogFileIn(directory);
    std::ofstream(file, std::ios::binary).close();
    std::filesystem::resize_file(file, kOverfullLogSize);
}

std::vector<std::string> LoggedLines(const std::filesystem::path& directory) {
    std::vector<std::string> lines;
    const std::filesystem::path file = kit::LogFileIn(directory);
    AppendLines(file.string() + ".old", lines);
    AppendLines(file, lines);
    return lines;
}

}  // namespace faults
