// The table of the commands of velactl.
#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <vector>

#include "tools/velactl/Context.h"
#include "tools/velactl/ExitCodes.h"

namespace velactl {

using Run = std::function<ExitCode(Context&)>;

struct Command {
    const char* name;
    const char* summary;
    // Adds the command's own arguments and returns the function to run after parsing.
    Run (*declare)(CLI::App& arguments);
};

// Returns the commands in the order of --help.
const std::vector<Command>& Commands();

// The `declare` functions of the table, each in a file of commands/.
Run DeclareDevices(CLI::App& arguments);
Run DeclareCaps(CLI::App& arguments);
Run DeclareStatus(CLI::App& arguments);
Run DeclareWatch(CLI::App& arguments);
Run DeclareLight(CLI::App& arguments);
Run DeclareVisible(CLI::App& arguments);
Run DeclareEnable(CLI::App& arguments);
Run DeclareBreathe(CLI::App& arguments);
Run DeclareBrightness(CLI::App& arguments);
Run DeclareClickMode(CLI::App& arguments);
Run DeclareHaptic(CLI::App& arguments);
Run DeclareDoctor(CLI::App& arguments);
Run DeclareLog(CLI::App& arguments);
Run DeclareRecord(CLI::App& arguments);
Run DeclareReport(CLI::App& arguments);

}  // namespace velactl
