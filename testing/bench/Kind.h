// The kinds of rows: which figures of the two sides stand in the table, how they are compared, and
// how all that is worded.
#pragma once

#include <string>

namespace bench {

// A number among its words, rounded.
struct Wording {
    const char* before;
    int digits;
    const char* after;

    std::string operator()(double number) const;
    // The number as a reader of the words takes it.
    double Rounded(double number) const;
};

// What one side of a row came to.
struct Figure {
    double compared;
    double tail;  // 0 where it is one number
};

struct Comparison {
    const char* name;
    double (*of)(double measured, double peer);
    bool (*meets)(double compared, double target);
};

struct Kind {
    const char* name;
    const char* quantile;  // the one that is compared, if there are many measurements
    std::string (*figure)(const Figure& figure);
    const Comparison* comparison;  // null: the two just stand side by side
    Wording compared;
    Wording target;
};

// Times in nanoseconds, shown with their 99.9th percentile.
extern const Kind kMedians;
// Their 99.9th percentiles alone.
extern const Kind kTails;
// Times that are too short for a ratio to mean much.
extern const Kind kNanosecondsOver;
// Of so many a second; more is better.
extern const Kind kRates;
extern const Kind kSizes;
extern const Kind kAllocations;
extern const Kind kBytesLeft;
// Calls for each further one of something: as many, however many there are.
extern const Kind kGrowth;
extern const Kind kWakeUps;

// Null when there is none of that name.
const Kind* FindKind(const std::string& name);

}  // namespace bench
