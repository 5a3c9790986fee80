#include "tools/velactl/CommandLine.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

#include "VelaAgentVersion.h"
#include "tools/velactl/Command.h"

namespace velactl {
namespace {

ExitCode ReportFailure(const std::string& failure, ExitCode code) {
    std::string line = failure;
    std::replace(line.begin(), line.end(), '\n', ' ');
    std::fprintf(stderr, "velactl: %s\n", line.c_str());
    return code;
}

ExitCode CodeOf(const vela_agent::OpenError& error) {
    return error.Result() == VELA_INIT_HELD_BY_OTHER ? kHeldByOther : kNoTouchpad;
}

ExitCode RunReporting(const Run& run, const Options& options) {
    try {
        Context context(options);
        return run(context);
    } catch (const vela_agent::LoadError& error) {
        return ReportFailure(error.what(), kNoLibrary);
    } catch (const vela_agent::OpenError& error) {
        return ReportFailure(error.what(), CodeOf(error));
    } catch (const Failure& error) {
        return ReportFailure(error.what(), error.Code());
    } catch (const std::exception& error) {
        return ReportFailure(error.what(), kFailed);
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
        std::reverse(arguments.begin(), arguments.end());  // the order that CLI11 requires
        app.parse(std::move(arguments));
    } catch (const CLI::Success& help) {
        app.exit(help);
        std::cout.flush();
        return kDone;
    } catch (const CLI::ParseError& error) {
        return ReportFailure(std::string(error.what()) + " (velactl --help tells more)", kUsage);
    }
    if (!chosen) return ReportFailure("which command? (velactl --help lists them)", kUsage);
    return RunReporting(chosen, options);
}

}  // namespace velactl
