// velactl record
#include "tools/recording/ReadableJson.h"
#include "tools/velactl/Command.h"
#include "tools/velactl/MachineRecording.h"
#include "tools/velactl/WholeFile.h"

namespace velactl {
namespace {

struct RecordOptions {
    std::string file;
    bool strings = false;
};

ExitCode Record(Context& context, const RecordOptions& options) {
    const StopSignal stop;
    context.FindVendorFile();
    const Json machine = RecordMachine(
        options.strings ? RecordedStrings::kOfEveryVendor : RecordedStrings::kOfWantedVendors,
        stop);
    WriteWholeFile(std::filesystem::u8path(options.file), recording::ReadableJson(machine));
    context.Print(machine["requests"]);
    return kDone;
}

}  // namespace

Run DeclareRecord(CLI::App& arguments) {
    const auto options = std::make_shared<RecordOptions>();
    arguments.add_option("FILE", options->file, "The file to write, replaced if it exists")
        ->required()
        ->type_name("");
    arguments.add_flag("--strings", options->strings,
                       "Request product and manufacturer strings from devices of every vendor, "
                       "not only of those that the agent looks for");
    return [options](Context& context) { return Record(context, *options); };
}

}  // namespace velactl
