// The touchpad as in a meeting, for the commands that show something on it.
#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <memory>

#include "VelaAgentWatch.hpp"
#include "tools/velactl/Context.h"
#include "tools/velactl/ExitCodes.h"

namespace velactl {

// Enables and shows all four buttons and activates the session, so that they are lit. Throws
// Failure.
void LightAll(vela_agent::Session& session, std::uint32_t activation);
// Sets the same for a watch.
void LightAll(vela_agent::Settings& settings, std::uint32_t activation);

// The time that the touchpad stays open after a command's change; closing it turns its lights off.
class Hold {
 public:
    explicit Hold(CLI::App& arguments);

    // Lights the buttons, makes the change, prints it and whether it succeeded, and waits.
    ExitCode Show(Context& context, Json change,
                  const std::function<bool(vela_agent::Session&)>& make) const;

 private:
    std::shared_ptr<double> seconds_;
};

}  // namespace velactl
