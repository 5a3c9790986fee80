// Starts and stops the logger again and again while the host's threads log, and checks its file
// after each stop. Every other time the file starts so long that the logger moves it away.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "testing/kit/LogFolder.h"
#include "testing/soak/HostThreads.h"

namespace soak {

struct LogFigures {
    std::int64_t segments = 0;
    std::int64_t rotations = 0;
    std::int64_t lines = 0;
    std::int64_t marks = 0;
    // Describes the first line that was torn, missing or out of order.
    std::string wrong;
};

class LogSegments {
 public:
    explicit LogSegments(const Agent& agent);

    // Starts and stops the logger once, and checks its file.
    void Run(const HostThreads& host, Allowance& allowance);
    const LogFigures& Figures() const { return figures_; }

 private:
    void PrepareFile(std::uintmax_t filling) const;
    void ReadFiles(std::uintmax_t filling, const MarkCounts& from, const MarkCounts& to);
    void CompareMarks(unsigned thread, const std::vector<std::uint32_t>& numbers,
                      std::uint32_t from, std::uint32_t to);
    void Wrong(const std::string& what);

    const Agent& agent_;
    kit::LogFolder folder_;
    std::filesystem::path file_;
    std::filesystem::path backup_;
    LogFigures figures_;
};

}  // namespace soak
