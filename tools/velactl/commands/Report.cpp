// velactl report
#include "tools/velactl/Command.h"
#include "tools/velactl/SupportReport.h"
#include "tools/velactl/WholeFile.h"

namespace velactl {
namespace {

// The part of the report before its first empty line.
std::string Head(const std::string& report) { return report.substr(0, report.find("\n\n") + 1); }

ExitCode Report(Context& context, const std::string& file) {
    const StopSignal stop;
    const std::string report = SupportReport(context, stop);
    WriteWholeFile(std::filesystem::u8path(file), report);
    context.Print({{"file", file}, {"head", Head(report)}}, Head(report));
    return kDone;
}

}  // namespace

Run DeclareReport(CLI::App& arguments) {
    const auto file = std::make_shared<std::string>();
    arguments.add_option("FILE", *file, "The text file to write, replaced if it exists")
        ->required()
        ->type_name("");
    return [file](Context& context) { return Report(context, *file); };
}

}  // namespace velactl
