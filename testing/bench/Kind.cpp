#include "testing/bench/Kind.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace bench {
namespace {

bool AtMost(double compared, double target) { return compared <= target; }
bool AtLeast(double compared, double target) { return compared >= target; }
double Quotient(double measured, double peer) { return measured / peer; }
double Difference(double measured, double peer) { return measured - peer; }

constexpr Comparison kRatio = {"ratio", Quotient, AtMost};
constexpr Comparison kRatioOfRates = {"ratio", Quotient, AtLeast};
constexpr Comparison kOver = {"over", Difference, AtMost};

std::string Microseconds(double nanoseconds) {
    constexpr double kLong = 100000;
    return Wording{"", nanoseconds < kLong ? 2 : 0, " us"}(nanoseconds / 1000);
}

std::string MedianAndTail(const Figure& figure) {
    return Microseconds(figure.compared) + " (" + Microseconds(figure.tail) + ")";
}
std::string Time(const Figure& figure) { return Microseconds(figure.compared); }
std::string Nanoseconds(const Figure& figure) { return Wording{"", 2, " ns"}(figure.compared); }
std::string Rate(const Figure& figure) { return Wording{"", 0, " /s"}(figure.compared); }
std::string Kibibytes(const Figure& figure) {
    return Wording{"", 0, " KiB"}(figure.compared / 1024);
}
std::string Bytes(const Figure& figure) { return Wording{"", 0, " bytes"}(figure.compared); }
std::string Hundredths(const Figure& figure) { return Wording{"", 2, ""}(figure.compared); }
std::string Count(const Figure& figure) { return Wording{"", 0, ""}(figure.compared); }

constexpr char kMedian[] = " p50";
constexpr char kTail[] = " p99.9";
constexpr char kSlowTail[] = " p99";
constexpr Wording kPlainRatio = {"", 2, ""};
constexpr Wording kRatioAtMost = {"at most ", 2, ""};
constexpr Wording kNothing = {"", 0, ""};

}  // namespace

constexpr Kind kMedians = {"medians", kMedian, MedianAndTail, &kRatio, kPlainRatio, kRatioAtMost};
constexpr Kind kTails = {"99.9th percentiles", kTail, Time, &kRatio, kPlainRatio, kRatioAtMost};
constexpr Kind kSlowest = {"99th percentiles", kSlowTail, Time, &kRatio, kPlainRatio, kRatioAtMost};
constexpr Kind kNanosecondsOver = {"medians, difference", kMedian,
                                   Nanoseconds,           &kOver,
                                   {"+", 2, " ns"},       {"at most ", 0, " ns over"}};
constexpr Kind kRates = {"rates", kMedian, Rate, &kRatioOfRates, kPlainRatio, {"at least ", 2, ""}};
constexpr Kind kSizes = {"sizes", "", Kibibytes, nullptr, kNothing, kNothing};
constexpr Kind kAllocations = {"allocations",   "", Hundredths, &kOver, {"", 2, " more"},
                               {"", 2, " more"}};
constexpr Kind kBytesLeft = {
    "bytes left", "", Bytes, &kOver, {"", 0, " bytes"}, {"level: at most +", 0, " bytes"}};
constexpr Kind kGrowth = {"growth", "", Hundredths, &kRatio, kPlainRatio, {"linear: ", 2, ""}};
constexpr Kind kWakeUps = {"wake-ups", "", Count, &kOver, {"+", 0, ""}, kNothing};

std::string Wording::operator()(double number) const {
    char text[64];
    std::snprintf(text, sizeof(text), "%.*f", digits, Rounded(number));
    return std::string(before) + text + after;
}

double Wording::Rounded(double number) const {
    const double scale = std::pow(10, digits);
    return std::round(number * scale) / scale + 0.0;  // without the sign of a negative zero
}

const Kind* FindKind(const std::string& name) {
    constexpr const Kind* kKinds[] = {&kMedians, &kTails,  &kSlowest,     &kNanosecondsOver,
                                      &kRates,   &kSizes,  &kAllocations, &kBytesLeft,
                                      &kGrowth,  &kWakeUps};
    const auto* const found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                           [&](const Kind* kind) { return kind->name == name; });
    return found == std::end(kKinds) ? nullptr : *found;
}

}  // namespace bench
