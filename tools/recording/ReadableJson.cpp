#include "tools/recording/ReadableJson.h"

namespace recording {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kLineLength = 125;

std::string OneLine(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// Calls itself for the members, as deep as the JSON is nested.
// NOLINTNEXTLINE(misc-no-recursion)
std::string Indented(const Json& json, std::size_t indentation, std::size_t nameLength = 0) {
    std::string line = OneLine(json);
    if (!json.is_structured() || indentation + nameLength + line.size() <= kLineLength) return line;
    const std::size_t inner = indentation + 1;
    std::string text;
    for (const auto& [name, value] : json.items()) {
        const std::string member = json.is_object() ? OneLine(name) + ": " : "";
        text += (text.empty() ? "\n" : ",\n") + std::string(inner, ' ') + member +
                Indented(value, inner, member.size());
    }
    text += '\n' + std::string(indentation, ' ');
    return json.is_object() ? '{' + text + '}' : '[' + text + ']';
}

}  // namespace

std::string ReadableJson(const Json& json) { return Indented(json, 0) + '\n'; }

}  // namespace recording
