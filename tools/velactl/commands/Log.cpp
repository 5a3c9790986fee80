// velactl log
#include <algorithm>

#include "tools/velactl/Command.h"
#include "tools/velactl/LogTail.h"
#include "tools/velactl/StopSignal.h"
#include "tools/velactl/Text.h"

namespace velactl {
namespace {

constexpr std::chrono::milliseconds kPollInterval{200};

struct LogOptions {
    std::string folder;
    std::size_t lines = 0;
    bool follow = false;
    double seconds = 0;  // 0: until Ctrl+C
};

// Removes the complete lines from the text; the agent may still be writing the last one.
std::vector<std::string> TakeLines(std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (auto end = text.find('\n'); end != std::string::npos; end = text.find('\n', start)) {
        lines.push_back(text.substr(start, end - start));
        if (!lines.back().empty() && lines.back().back() == '\r') lines.back().pop_back();
        start = end + 1;
    }
    text.erase(0, start);
    return lines;
}

void PrintLines(const Context& context, const std::vector<std::string>& lines,
                std::size_t from = 0) {
    for (std::size_t i = from; i < lines.size(); ++i) {
        context.Print({{"line", lines[i]}}, lines[i] + '\n');
    }
}

ExitCode PrintLog(Context& context, const LogOptions& options) {
    const auto folder =
        options.folder.empty() ? context.LogFolder() : std::filesystem::u8path(options.folder);
    if (folder.empty()) throw Failure("log: in which folder does the agent log?", kUsage);
    const StopSignal stop;
    LogTail tail(folder);
    if (!options.follow && !tail.FileExists()) {
        throw Failure("no VelaAgent.log in " + Utf8(folder.wstring()));
    }
    std::string text = tail.Read();
    const std::vector<std::string> lines = TakeLines(text);
    PrintLines(context, lines,
               options.lines == 0 ? 0 : lines.size() - (std::min)(lines.size(), options.lines));

    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::milliseconds(static_cast<std::int64_t>(options.seconds * 1000));
    while (options.follow && !stop.WaitFor(kPollInterval)) {
        text += tail.Read();
        PrintLines(context, TakeLines(text));
        if (options.seconds > 0 && std::chrono::steady_clock::now() >= end) break;
    }
    return kDone;
}

}  // namespace

Run DeclareLog(CLI::App& arguments) {
    const auto options = std::make_shared<LogOptions>();
    arguments.add_option("FOLDER", options->folder, "Where the agent logs [the one of --log]")
        ->type_name("");
    arguments.add_option("--lines", options->lines, "Only so many of the last lines [all]")
        ->type_name("COUNT");
    arguments.add_flag("--follow", options->follow, "Go on with what is written, until Ctrl+C");
    arguments.add_option("--seconds", options->seconds, "Follow for this time")
        ->check(CLI::Range(0.1, 86400.0).description(""))
        ->type_name("SECONDS");
    return [options](Context& context) { return PrintLog(context, *options); };
}

}  // namespace velactl
