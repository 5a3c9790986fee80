// The figures of a soak: rows of a table that is printed at its end, some of them judged.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace soak {

class Figures {
 public:
    explicit Figures(std::string stage) : stage_(std::move(stage)) {}

    // Only told.
    void Note(const std::string& name, const std::string& value);
    void Note(const std::string& name, std::int64_t value) { Note(name, std::to_string(value)); }
    // Told and judged.
    void Judge(const std::string& name, const std::string& value, bool passed);
    void Judge(const std::string& name, std::int64_t value, bool passed) {
        Judge(name, std::to_string(value), passed);
    }

    // The table, on the standard output.
    void Print() const;
    // 0 when nothing failed.
    int ExitCode() const;

 private:
    struct Row {
        std::string name;
        std::string value;
        std::string verdict;
    };

    std::string stage_;
    std::vector<Row> rows_;
};

// A line while a soak runs.
void PrintLine(const std::string& line);

}  // namespace soak
