// velactl.exe as a process of its own, with what it prints.
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
    // Starts it. Throws std::runtime_error when that fails.
    explicit Velactl(const std::wstring& arguments);
    // Ends it if need be.
    ~Velactl();
    Velactl(const Velactl&) = delete;
    Velactl& operator=(const Velactl&) = delete;

    // True once it has printed this.
    bool WaitForOutput(const std::string& part) const;
    // As Ctrl+C in its console.
    void Interrupt() const;
    // Its exit code; STILL_ACTIVE when it does not end within half a minute.
    DWORD Wait() const;

    // What it has printed so far, with plain line feeds.
    std::string Output() const;
    std::string Errors() const;
    // Each line of the output, for --json.
    std::vector<Json> Results() const;

 private:
    const kit::TemporaryFolder folder_;
    std::filesystem::path output_;
    std::filesystem::path errors_;
    PROCESS_INFORMATION process_{};
};

// Runs it to its end.
struct Finished {
    explicit Finished(const std::wstring& arguments) : Finished(Velactl(arguments)) {}
    explicit Finished(const Velactl& program);

    DWORD exitCode;
    std::string output;
    std::string errors;
    std::vector<Json> results;  // with --json
};

}  // namespace velactl_test
