// Writes a log file as the agent does, with nothing but the system calls for it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace bench {

// For each line, queries the file's size, opens it for appending, writes the line and closes it.
void WriteBareLines(const std::filesystem::path& file, const std::vector<std::string>& lines);

}  // namespace bench
