#include "tools/velactl/Render.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace velactl {
namespace {

using Row = std::vector<std::string>;

std::string Cell(const Json& value) {
    if (value.is_string()) return value.get<std::string>();
    if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
    if (value.is_null()) return "-";
    return value.dump();
}

// Counts characters, not bytes: the continuation bytes of UTF-8 take no column.
std::size_t Width(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string Aligned(const std::vector<Row>& rows) {
    std::vector<std::size_t> widths;
    for (const Row& row : rows) {
        widths.resize((std::max)(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = (std::max)(widths[i], Width(row[i]));
        }
    }
    std::string text;
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i] + std::string(widths[i] - Width(row[i]) + 2, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + '\n';
    }
    return text;
}

std::string Table(const Json& objects) {
    if (objects.empty()) return "none\n";
    std::vector<Row> rows(1);
    for (const auto& [name, value] : objects.front().items()) rows.front().push_back(name);
    for (const Json& object : objects) {
        Row row;
        for (const auto& [name, value] : object.items()) row.push_back(Cell(value));
        rows.push_back(std::move(row));
    }
    return Aligned(rows);
}

}  // namespace

std::string RenderText(const Json& result) {
    if (result.is_array()) return Table(result);
    std::vector<Row> rows;
    for (const auto& [name, value] : result.items()) rows.push_back({name, Cell(value)});
    return Aligned(rows);
}

}  // namespace velactl
