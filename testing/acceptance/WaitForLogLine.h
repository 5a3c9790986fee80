// Waiting for the agent's log, which is written by a thread of its own.
#pragma once

#include <windows.h>

#include <chrono>
#include <string>

#include "testing/acceptance/AgentLogFile.h"

namespace acceptance {

// How often the file holds the whole line, given without its time stamp.
inline std::size_t CountLogLine(const LogFolder& log, const std::string& line) {
    const std::string ending = "] " + line + "\r\n";
    const std::string text = log.Text();
    std::size_t count = 0;
    for (auto found = text.find(ending); found != text.npos; found = text.find(ending, found + 1)) {
        ++count;
    }
    return count;
}

// True once the line stands in the file `count` times.
inline bool WaitForLogLine(const LogFolder& log, const std::string& line, std::size_t count = 1,
                           std::chrono::seconds patience = std::chrono::seconds(10)) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (CountLogLine(log, line) < count) {
        if (std::chrono::steady_clock::now() >= deadline) return false;
        Sleep(10);
    }
    return true;
}

}  // namespace acceptance
