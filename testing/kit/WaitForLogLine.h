// Waits for what another thread of the agent logs.
#pragma once

#include <chrono>
#include <fstream>
#include <string>
#include <thread>

#include "testing/kit/AgentLog.h"

namespace test_support {

// True once the log file holds `count` lines with this text; gives up after ten seconds.
inline bool WaitForLogLine(const AgentLog& log, const std::string& text, std::size_t count = 1) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    for (;;) {
        std::ifstream stream(log.File(), std::ios::binary);
        std::size_t found = 0;
        for (std::string line; std::getline(stream, line);) {
            if (line.find(text) != std::string::npos) ++found;
        }
        if (found >= count) return true;
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

}  // namespace test_support
