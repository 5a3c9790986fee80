// A velactl.exe process and its output.
#pragma once

#include <windows.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "testing/kit/TemporaryFolder.h"

namespace velactl_test {

using Json = nlohmann::json;

class Velactl {
 public:
    // Starts the process. Throws std::runtime_error when that fails.
    explicit Velactl(const std::wstring& arguments);
    // Ends the process if it is still running.
    ~Velactl();
    Velactl(const Velactl&) = delete;
    Velactl& operator=(const Velactl&) = delete;

    // Returns true once velactl has printed this.
    bool WaitForOutput(const std::string& part) const;
    // Sends what Ctrl+C in the console sends.
    void Interrupt() const;
    // Returns the exit code; STILL_ACTIVE when velactl does not end within half a minute.
    DWORD Wait() const;

    // Returns the output so far, with plain line feeds.
    std::string Output() const;
    std::string Errors() const;
    // Returns the lines of the output, for --json.
    std::vector<Json> Results() const;

 private:
    const kit::TemporaryFolder folder_;
    std::filesystem::path output_;
    std::filesystem::path errors_;
    PROCESS_INFORMATION process_{};
};

// Runs velactl to its end.
struct Finished {
    explicit Finished(const std::wstring& arguments) : Finished(Velactl(arguments)) {}
    explicit Finished(const Velactl& program);

    DWORD exitCode;
    std::string output;
    std::string errors;
    std::vector<Json> results;  // with --json
};

}  // namespace velactl_test
