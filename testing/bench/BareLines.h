// A log file written as the agent's has to be, by nothing but the system calls for it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace bench {

// Each line: the size is asked, the file opened for appending, the line written, the file closed.
void WriteBareLines(const std::filesystem::path& file, const std::vector<std::string>& lines);

}  // namespace bench
