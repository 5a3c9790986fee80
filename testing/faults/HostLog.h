// The agent's log as a host finds it after a run.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace faults {

// More than the agent lets its file grow to: the first line of a run moves the file away.
constexpr std::uintmax_t kOverfullLogSize = 0x500001;

// Empties `folder`, and makes a directory in it for InitLogger.
std::filesystem::path MakeLogDirectory(const std::filesystem::path& folder);
// Puts an overfull log file there.
void OverfillLog(const std::filesystem::path& directory);

// "{ERROR @ Function} text" of every line, the time stamp cut off; the old file's come first.
std::vector<std::string> LoggedLines(const std::filesystem::path& directory);

}  // namespace faults
