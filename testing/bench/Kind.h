// The kinds of rows: which figures of the two sides are in the table, how they are compared, and
// their wording.
#pragma once

#include <string>

namespace bench {

// The text around a number, and the digits to which it is rounded.
struct Wording {
    const char* before;
    int digits;
    const char* after;

    std::string operator()(double number) const;
    // Returns the number as the text shows it.
    double Rounded(double number) const;
};

// The result of one side of a row.
struct Figure {
    double compared;
    double tail;  // 0 when the result is a single number
};

struct Comparison {
    const char* name;
    double (*of)(double measured, double peer);
    bool (*meets)(double compared, double target);
};

struct Kind {
    const char* name;
    const char* quantile;  // the compared quantile, for many measurements
    std::string (*figure)(const Figure& figure);
    const Comparison* comparison;  // null: the two sides are not compared
    Wording compared;
    Wording target;
};

// Times in nanoseconds, shown with their 99.9th percentile.
extern const Kind kMedians;
// Only the 99.9th percentiles of such times.
extern const Kind kTails;
// Only their 99th percentiles, of things that take too long to be measured a thousand times.
extern const Kind kSlowest;
// Times that are too short for a ratio to mean much.
extern const Kind kNanosecondsOver;
// Rates per second; higher is better.
extern const Kind kRates;
extern const Kind kSizes;
extern const Kind kAllocations;
extern const Kind kBytesLeft;
// Calls for each additional item: the number should not depend on how many items there are.
extern const Kind kGrowth;
extern const Kind kWakeUps;

// Returns null when no kind has that name.
const Kind* FindKind(const std::string& name);

}  // namespace bench
