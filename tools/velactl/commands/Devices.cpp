#include <memory>

#include "hid/HIDDevicePaths.h"
#include "tools/velactl/Command.h"
#include "tools/velactl/DeviceList.h"

namespace velactl {
namespace {

ExitCode PrintDevices(Context& context, Names names) {
    context.Library();  // sets the folder of "Vela.ini"
    context.Print(ListDevices(vela::GetHidDevicePathList(), names));
    return kDone;
}

}  // namespace

Run DeclareDevices(CLI::App& arguments) {
    const auto withNames = std::make_shared<bool>(false);
    arguments.add_flag("--names", *withNames,
                       "Query every device for its name, not only the chosen ones");
    return [withNames](Context& context) {
        return PrintDevices(context, *withNames ? Names::kOfAll : Names::kOfTheChosen);
    };
}

}  // namespace velactl
