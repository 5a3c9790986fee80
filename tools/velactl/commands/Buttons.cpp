// velactl light, visible, enable, breathe and brightness
#include "tools/velactl/Command.h"
#include "tools/velactl/Meeting.h"
#include "tools/velactl/Names.h"

namespace velactl {
namespace {

// Replaces a name by the number that it stands for.
template <typename Value>
CLI::Validator OneOf(const std::map<std::string, Value>& words) {
    const auto replace = [&words](std::string& text) -> std::string {
        const auto word = words.find(CLI::detail::to_lower(text));
        if (word != words.end()) {
            text = std::to_string(static_cast<int>(word->second));
            return {};
        }
        std::string known;
        for (const auto& [name, value] : words) known += (known.empty() ? "" : ", ") + name;
        return '"' + text + "\" is none of " + known;
    };
    return CLI::Validator(replace, "");
}

template <typename Value>
void AddWord(CLI::App& arguments, const char* name, Value& value,
             const std::map<std::string, Value>& words, const std::string& help) {
    arguments.add_option(name, value, help)->required()->transform(OneOf(words))->type_name("");
}

// Declares the command of a switch that each button has.
Run DeclareButtonSwitch(CLI::App& arguments, const char* what,
                        bool (vela_agent::Session::*set)(VelaButton, bool)) {
    const auto button = std::make_shared<VelaButton>();
    const auto on = std::make_shared<bool>();
    AddWord(arguments, "BUTTON", *button, Buttons(), "camera, microphone, chat or share-screen");
    AddWord(arguments, "STATE", *on, Switch(), "on or off");
    return [=, hold = Hold(arguments)](Context& context) {
        return hold.Show(
            context, {{"button", ButtonName(*button)}, {what, SwitchName(*on)}},
            // cppcheck-suppress constParameter ; the member that is called may change it
            [&](vela_agent::Session& session) { return (session.*set)(*button, *on); });
    };
}

}  // namespace

Run DeclareLight(CLI::App& arguments) {
    arguments.footer("Chat and share-screen have one light each, which is lit either way.");
    return DeclareButtonSwitch(arguments, "light", &vela_agent::Session::SetLight);
}

Run DeclareVisible(CLI::App& arguments) {
    return DeclareButtonSwitch(arguments, "visible", &vela_agent::Session::SetVisible);
}

Run DeclareEnable(CLI::App& arguments) {
    return DeclareButtonSwitch(arguments, "enabled", &vela_agent::Session::EnableButton);
}

Run DeclareBreathe(CLI::App& arguments) {
    const auto on = std::make_shared<bool>();
    AddWord(arguments, "STATE", *on, Switch(), "on or off");
    return [=, hold = Hold(arguments)](Context& context) {
        return hold.Show(
            context, {{"breathing", SwitchName(*on)}},
            [&](vela_agent::Session& session) { return session.SetChatBreathing(*on); });
    };
}

Run DeclareBrightness(CLI::App& arguments) {
    const auto level = std::make_shared<unsigned>(0);
    arguments.add_option("LEVEL", *level, "0 (dark) to 255")
        ->required()
        ->check(CLI::Range(0, 255).description(""))
        ->type_name("");
    return [=, hold = Hold(arguments)](Context& context) {
        return hold.Show(context, {{"brightness", *level}}, [&](vela_agent::Session& session) {
            session.SetBrightness(static_cast<std::uint8_t>(*level));
            return session.Brightness() == *level;
        });
    };
}

}  // namespace velactl
