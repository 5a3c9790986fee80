// velactl haptic
#include "tools/velactl/Command.h"

namespace velactl {
namespace {

ExitCode Haptic(Context& context, const std::optional<std::uint32_t>& level) {
    vela_agent::Haptics haptics(context.Library());
    if (level && !haptics.SetLevel(*level)) {
        throw Failure("the haptic touchpad did not take the level; with --log the agent tells why");
    }
    context.Print({{"level", haptics.Level()}});
    return kDone;
}

}  // namespace

Run DeclareHaptic(CLI::App& arguments) {
    const auto level = std::make_shared<std::optional<std::uint32_t>>();
    arguments
        .add_option_function<std::uint32_t>(
            "LEVEL", [level](const std::uint32_t& number) { *level = number; },
            "In the device's own units, mostly 0 to 100")
        ->type_name("");
    return [level](Context& context) { return Haptic(context, *level); };
}

}  // namespace velactl
