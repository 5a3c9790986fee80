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
    // The first line that is none, if there was one.
    std::string torn;

    // Reads on, in a further file, after its first `skipped` bytes.
    void Read(const std::filesystem::path& file, std::uintmax_t skipped);
};

// "[2024-05-06 17:41:58] {INFO @ Initialize} text", with what the platform puts at a line's end.
bool IsLogLine(const std::string& line);

}  // namespace soak
