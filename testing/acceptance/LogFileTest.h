// The fixture of the log file's tests: the DLL and a folder to log into, without a touchpad.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "testing/kit/LogFolder.h"
#include "testing/kit/windows/AgentDll.h"

namespace acceptance {

using namespace kit;

constexpr std::uintmax_t kLogSizeLimit = 5 * 1024 * 1024;
// UnInit logs this without a session, so it is the simplest way to log one line.
constexpr char kLine[] =
    "{INFO @ Uninitialize} ================= Uninitialize starts. =================";
constexpr char kNullLine[] = "{WARNING @ InitLogger} InitLogger failed, directory is null pointer.";
constexpr char kLastLine[] = "{INFO @ UnInitialize} Logger::UnInitialize";

class LogFileTest : public testing::Test {
 protected:
    // Logs one line and stops the logger, which adds its last line.
    void LogOneLine(const std::filesystem::path& directory) {
        agent_.InitLogger(directory.c_str());
        agent_.UnInit();
        agent_.UnInitLogger();
    }
    void LogOneLine() { LogOneLine(folder_.Path()); }

    std::filesystem::path Backup() const { return folder_.Path() / "VelaAgent.log.old"; }

    static void Write(const std::filesystem::path& file, const std::string& text) {
        std::ofstream(file, std::ios::binary) << text;
    }
    static std::string Read(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        std::ostringstream text;
        text << stream.rdbuf();
        return text.str();
    }

    AgentDll agent_;
    LogFolder folder_;
};

}  // namespace acceptance
