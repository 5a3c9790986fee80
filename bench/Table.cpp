#include "bench/Table.h"

#include <cstdio>

namespace bench {
namespace {

void PrintRatio(Row row, double ratio, std::optional<double> atMost) {
    row.ratio = Number(ratio);
    if (atMost) {
        row.target = "at most " + Number(*atMost);
        // As it is shown: 1.004 meets a target of 1.00.
        row.met = std::stod(row.ratio) <= *atMost;
    }
    Print(row);
}

std::string MedianAndTail(const Samples& samples) {
    return Microseconds(samples.Median()) + " (" + Microseconds(samples.Tail()) + ")";
}

}  // namespace

void Print(const Row& row) {
    const char* const met = !row.met ? "" : *row.met ? "yes" : "NO";
    std::printf("| %s | %s | %s | %s | %s | %s |\n", row.what.c_str(), row.measured.c_str(),
                row.limit.c_str(), row.ratio.c_str(), row.target.c_str(), met);
    std::fflush(stdout);
}

std::string Number(double value, int digits) {
    char text[64];
    std::snprintf(text, sizeof(text), "%.*f", digits, value);
    return text;
}

std::string Microseconds(double nanoseconds) {
    return Number(nanoseconds / 1000, nanoseconds < 100000 ? 2 : 0) + " us";
}

void PrintMedians(const std::string& what, const std::string& peer, const Pair& pair,
                  std::optional<double> atMost) {
    PrintRatio(
        {what, MedianAndTail(pair.measured), peer + ": " + MedianAndTail(pair.peer), "", "", {}},
        pair.measured.Median() / pair.peer.Median(), atMost);
}

void PrintTails(const std::string& what, const std::string& peer, const Pair& pair, double atMost) {
    PrintRatio({what,
                Microseconds(pair.measured.Tail()),
                peer + ": " + Microseconds(pair.peer.Tail()),
                "",
                "",
                {}},
               pair.measured.Tail() / pair.peer.Tail(), atMost);
}

}  // namespace bench
