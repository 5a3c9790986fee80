// The figures of a soak: rows of a table that is printed at its end, some of them judged.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace soak {

class Figures {
 public:
    explicit Figures(std::string stage) : stage_(std::move(stage)) {}

    // Adds a row without a verdict.
    void Note(const std::string& name, const std::string& value);
    void Note(const std::string& name, std::int64_t value) { Note(name, std::to_string(value)); }
    // Adds a row with a verdict.
    void Judge(const std::string& name, const std::string& value, bool passed);
    void Judge(const std::string& name, std::int64_t value, bool passed) {
        Judge(name, std::to_string(value), passed);
    }

    // Prints the table on the standard output.
    void Print() const;
    // Returns 0 when no row failed.
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

// Prints a line on the standard error while a soak runs.
void PrintLine(const std::string& line);

}  // namespace soak
