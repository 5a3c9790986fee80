// A command's result as text for people; scripts get the same result as JSON.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace velactl {

using Json = nlohmann::ordered_json;

// An object as lines "name  value", a list of objects as a table with a heading; with the line end.
std::string RenderText(const Json& result);

}  // namespace velactl
