// The way from a fixed touchpad to the host and back.
#include "testing/bench/Run.h"
#include "testing/bench/windows/PressLatencies.h"

namespace {

using namespace bench;

constexpr char kSeen[] = "Wine: input report to the callback";
constexpr char kLit[] = "Wine: press to the light report";
constexpr char kReads[] = "bare ReadFile loop";
constexpr char kReadsAndWrites[] = "bare read and write loop";
constexpr char kHandsOver[] = "the same, writing on a second thread";
constexpr WritesOn kOne = WritesOn::TheReader;
constexpr WritesOn kTwo = WritesOn::AThreadOfItsOwn;
constexpr Queries kNone = Queries::None;
constexpr wchar_t kFixed[] = L"Vela Touchpad";

constexpr LatencyRow kRows[] = {
    {kSeen, kFixed, false, kReads, kOne, kNone, &Latencies::seen, 1.05},
    {kLit, kFixed, false, kReadsAndWrites, kOne, kNone, &Latencies::lit, 1.15},
    {kLit, kFixed, false, kHandsOver, kTwo, kNone, &Latencies::lit, 1.05},
    {kSeen, kFixed, true, kReads, kOne, kNone, &Latencies::seen, {}},
    {kLit, kFixed, true, kReadsAndWrites, kOne, kNone, &Latencies::lit, 2},
    {kLit, kFixed, true, kHandsOver, kTwo, kNone, &Latencies::lit, {}},
};

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        for (const LatencyRow& row : kRows) RegisterLatencies(row);
    });
}
