#include "tools/velactl/CommandLine.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

#include "VelaAgentVersion.h"
#include "tools/velactl/Command.h"

namespace velactl {
namespace {

ExitCode Tell(const std::string& failure, ExitCode code) {
    std::string line = failure;
    std::replace(line.begin(), line.end(), '\n', ' ');
    std::fprintf(stderr, "velactl: %s\n", line.c_str());
    return code;
}

ExitCode CodeOf(const vela_agent::OpenError& error) {
    return error.Result() == VELA_INIT_HELD_BY_OTHER ? kHeldByOther : kNoTouchpad;
}

ExitCode RunTelling(const Run& run, const Options& options) {
    try {
        Context context(options);
        return run(context);
    } catch (const vela_agent::LoadError& error) {
        return Tell(error.what(), kNoLibrary);
    } catch (const vela_agent::OpenError& error) {
        return Tell(error.what(), CodeOf(error));
    } catch (const Failure& error) {
        return Tell(error.what(), error.Code());
    } catch (const std::exception& error) {
        return Tell(error.what(), kFailed);
    }
}

void DeclareOptions(CLI::App& app, Options& options) {
    app.add_option("--dll", options.dll, "The library to drive [VelaAgent.dll beside velactl]")
        ->type_name("FILE");
    app.add_option("--log", options.log, "Folder for the agent's log [it does not log]")
        ->type_name("FOLDER");
    app.add_flag("--json", options.json, "Print JSON, a line for each result");
}

}  // namespace

ExitCode RunCommandLine(std::vector<std::string> arguments) {
    CLI::App app("Drives the touchpad with the meeting buttons from the command line.", "velactl");
    Options options;
    Run chosen;
    app.fallthrough();
    app.require_subcommand(0, 1);
    app.set_version_flag("--version", "velactl " VELA_AGENT_VERSION);
    app.footer(kExitCodesHelp);
    DeclareOptions(app, options);
    for (const Command& command : Commands()) {
        CLI::App* const own = app.add_subcommand(command.name, command.summary);
        const Run run = command.declare(*own);
        own->callback([&chosen, run] { chosen = run; });
    }
    try {
        std::reverse(arguments.begin(), arguments.end());  // as CLI11 takes them
        app.parse(std::move(arguments));
    } catch (const CLI::Success& help) {
        app.exit(help);
        std::cout.flush();
        return kDone;
    } catch (const CLI::ParseError& error) {
        return Tell(std::string(error.what()) + " (velactl --help tells more)", kUsage);
    }
    if (!chosen) return Tell("which command? (velactl --help lists them)", kUsage);
    return RunTelling(chosen, options);
}

}  // namespace velactl
