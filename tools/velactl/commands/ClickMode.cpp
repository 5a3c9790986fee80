// velactl clickmode
#include "tools/velactl/Command.h"
#include "tools/velactl/Names.h"

namespace velactl {
namespace {

struct ClickModeOptions {
    std::string state;  // empty: only print it
    std::uint16_t value = 0;
};

ExitCode ClickMode(Context& context, const ClickModeOptions& options) {
    vela_agent::Session session(context.Library());
    if (!options.state.empty() &&
        !session.SetClickMode(options.state == "on" ? 1 : 0, options.value)) {
        throw Failure("the touchpad did not take the click mode; with --log the agent tells why");
    }
    context.Print({{"clickMode", SwitchName(session.IsClickModeOn())}});
    return kDone;
}

}  // namespace

Run DeclareClickMode(CLI::App& arguments) {
    const auto options = std::make_shared<ClickModeOptions>();
    arguments.add_option("STATE", options->state, "on or off")
        ->check(CLI::IsMember({"on", "off"}).description(""))
        ->type_name("");
    CLI::Option* const value =
        arguments.add_option("VALUE", options->value, "For \"on\", in the device's own units")
            ->check(CLI::Range(1, 65535).description(""))
            ->type_name("");
    return [=](Context& context) {
        if (options->state == "on" && value->count() == 0) {
            throw Failure("clickmode on: which value, 1 to 65535?", kUsage);
        }
        return ClickMode(context, *options);
    };
}

}  // namespace velactl
