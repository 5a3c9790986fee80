// A command's result as text for people; scripts receive the same result as JSON.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace velactl {

using Json = nlohmann::ordered_json;

// Renders an object as lines "name  value", and a list of objects as a table with a heading. The
// text ends with a line end.
std::string RenderText(const Json& result);

}  // namespace velactl
