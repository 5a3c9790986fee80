// The context of every command: the options common to all of them, the library, and the output.
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
    // The folder for the agent's log; empty when the agent does not log.
    std::filesystem::path LogFolder() const { return logFolder_; }
    bool IsJson() const { return json_; }

    // Loads the library and starts its log at the first call. Throws vela_agent::LoadError.
    const vela_agent::Library& Library();

    // Loads the library as far as it is there, as its folder has the "Vela.ini" with the vendors.
    void FindVendorFile();

    // Prints a command's result, or a part of it.
    void Print(const Json& result) const;
    // Prints `text` instead of the rendered result when the output is not JSON.
    void Print(const Json& result, const std::string& text) const;

 private:
    std::filesystem::path dllFile_;
    std::filesystem::path logFolder_;
    bool json_;
    std::optional<vela_agent::Library> library_;
    std::optional<vela_agent::Logger> logger_;
};

}  // namespace velactl
