// JSON for people to read and compare: what fits on a line is on one.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace recording {

// Returns the text with a line end. Bytes that are not UTF-8 are replaced.
std::string ReadableJson(const nlohmann::ordered_json& json);

}  // namespace recording
