// A log file written as the agent's has to be, by nothing but the system calls for it.
#pragma once

#include <filesystem>

namespace bench {

constexpr char kBareFunction[] = "SetButtonLight";
constexpr char kBareMessage[] = "SetButtonLight for BUTTON_ID 2 (1)";

// Each line: the size is asked, the file opened for appending, the line written, the file closed.
void WriteBareLines(const std::filesystem::path& file, int lines);

}  // namespace bench
