// The lines of "VelaAgent.log", and the marks among them.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "testing/soak/RandomCalls.h"

namespace soak {

constexpr unsigned kMarkingThreads = 3;

using MarkNumbers = std::array<std::vector<std::uint32_t>, kMarkingThreads>;

struct LogLines {
    std::int64_t count = 0;
    MarkNumbers marks;  // of each thread, in the order of the file
    // The first malformed line; empty when there is none.
    std::string torn;

    // Reads another file from offset `skipped`, and adds its lines.
    void Read(const std::filesystem::path& file, std::uintmax_t skipped);
};

// Returns whether the line has the form "[2024-05-06 17:41:58] {INFO @ Initialize} text" and ends
// in a carriage return.
bool IsLogLine(const std::string& line);

}  // namespace soak
