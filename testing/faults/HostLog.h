// The agent's log as a host finds it after a run.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace faults {

// Above the agent's size limit: the first line of a run moves such a file away.
constexpr std::uintmax_t kOverfullLogSize = 0x500001;

// Empties `folder` and returns a new directory in it for InitLogger.
std::filesystem::path MakeLogDirectory(const std::filesystem::path& folder);
// Puts an overfull log file there.
void OverfillLog(const std::filesystem::path& directory);

// Returns every line as "{ERROR @ Function} text", without its time stamp; the old file's first.
std::vector<std::string> LoggedLines(const std::filesystem::path& directory);

}  // namespace faults
