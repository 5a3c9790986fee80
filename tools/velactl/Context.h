// What every command works with: the options that all of them take, the library, and the output.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "VelaAgent.hpp"
#include "tools/velactl/Render.h"

namespace velactl {

struct Options {
    std::string dll;  // empty: VelaAgent.dll beside this program
    std::string log;  // empty: the agent does not log
    bool json = false;
};

class Context {
 public:
    explicit Context(const Options& options);

    std::filesystem::path DllFile() const { return dllFile_; }
    // Where the agent is to log; empty when it is not.
    std::filesystem::path LogFolder() const { return logFolder_; }
    bool IsJson() const { return json_; }

    // Loaded, and logging begun, when it is first asked for. Throws vela_agent::LoadError.
    const vela_agent::Library& Library();

    // A command's result, in one piece or one of many.
    void Print(const Json& result) const;
    // With words of the command's own for people.
    void Print(const Json& result, const std::string& text) const;

 private:
    std::filesystem::path dllFile_;
    std::filesystem::path logFolder_;
    bool json_;
    std::optional<vela_agent::Library> library_;
    std::optional<vela_agent::Logger> logger_;
};

}  // namespace velactl
