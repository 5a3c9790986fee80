// Runs hosts and touchpads that do anything in any order, while one platform call in 400 fails.
// Nothing crashes or hangs, the log stays readable and free of unfounded warnings, nothing is left
// behind, and once the failures stop, the next session works.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <sstream>

#include "testing/faults/Aftermath.h"
#include "testing/faults/ChildProcess.h"
#include "testing/faults/Effort.h"
#include "testing/faults/HostLog.h"
#include "testing/faults/RandomScript.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/kit/native/PlausibleFaults.h"

namespace faults {
namespace {

using simulator::Fault;

constexpr std::uint64_t kOneIn = 400;
constexpr std::uint64_t kTests = 40;  // may run in parallel
constexpr std::uint64_t kSessions = kEffort.randomSessions;
constexpr std::uint64_t kSessionsOfProcess = 25;
static_assert(kSessions % kSessionsOfProcess == 0);

// Mixes bits for a hash of the call alone: which calls fail does not depend on the threads' order.
std::uint64_t Mix(std::uint64_t bits) {
    bits = (bits ^ bits >> 30U) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ bits >> 27U) * 0x94D049BB133111EBU;
    return bits ^ bits >> 31U;
}

std::optional<Fault> FailSome(std::uint64_t seed, const WatchedCall& call) {
    std::uint64_t bits = Mix(seed + 1);
    for (const char letter : call.function) bits = Mix(bits + static_cast<unsigned char>(letter));
    bits = Mix(Mix(bits + call.thread) + call.number);
    if (bits % kOneIn != 0) return std::nullopt;
    const std::vector<Fault> faults = kit::PlausibleFaults(call.function, call.arguments);
    if (faults.empty()) return std::nullopt;
    return faults[bits / kOneIn % faults.size()];
}

bool IsTrouble(const std::string& line) {
    return line.rfind("{ERROR ", 0) == 0 || line.rfind("{WARNING ", 0) == 0;
}

bool IsLogLine(const std::string& line) {
    const bool level = IsTrouble(line) || line.rfind("{INFO ", 0) == 0;
    const std::size_t at = line.find(" @ ");
    const std::size_t end = line.find("} ");
    const bool parts = at < end && end != std::string::npos && end + 2 < line.size();
    if (!level || !parts) return false;
    return std::all_of(line.begin() + static_cast<std::ptrdiff_t>(at) + 3,
                       line.begin() + static_cast<std::ptrdiff_t>(end),
                       [](char letter) { return letter == '~' || std::isalpha(letter) != 0; });
}

// IsDetachable queries its device handle also while no session is open.
constexpr const char* kNoDevice =
    "{WARNING @ IsDetachable} GetProductString failed, GetLastError(6).";

std::string CheckLog(const std::vector<std::string>& lines, bool troubleIsFine) {
    std::string problems;
    for (const std::string& line : lines) {
        if (!IsLogLine(line)) problems += "  not in the form of the log: " + line + "\n";
        const bool reason = troubleIsFine || line == kNoDevice;
        if (IsTrouble(line) && !reason) problems += "  without reason: " + line + "\n";
    }
    if (lines.empty() || lines.back() != "{INFO @ UnInitialize} Logger::UnInitialize") {
        problems += "  the log does not end as it should\n";
    }
    return problems;
}

struct Tally {
    std::uint64_t calls = 0;
    std::uint64_t faults = 0;
    bool heartbeat = false;
    std::string problems;
};

std::string StoryOf(const RandomScript& script, const std::vector<WatchedCall>& calls) {
    std::string story = " ";
    for (const Step& step : script.steps) story += " " + step.name + ";";
    for (const WatchedCall& call : calls) {
        if (call.failed) story += "\n  failed in " + call.Text();
    }
    return story + "\n";
}

void PlaySession(std::uint64_t seed, const virtual_touchpad::TouchpadLayout& layout,
                 const std::filesystem::path& folder, Tally& tally) {
    const RandomScript script = MakeRandomScript(seed);
    ScriptFixture fixture(layout, Script::Subject::Touchpad, folder,
                          [seed](const WatchedCall& call) { return FailSome(seed, call); });
    for (const Step& step : script.steps) fixture.Do(step);
    const std::vector<WatchedCall> calls = fixture.Watch().Calls();
    const auto faults = static_cast<std::uint64_t>(std::count_if(
        calls.begin(), calls.end(), [](const WatchedCall& call) { return call.failed; }));
    std::string problems =
        CheckLog(LoggedLines(fixture.LogDirectory()), faults != 0 || !script.calm);
    problems += Leftovers(fixture);
    problems += Reopen(fixture);
    tally.calls += calls.size();
    tally.faults += faults;
    tally.heartbeat = tally.heartbeat || HeartbeatWasStarted(fixture);
    if (problems.empty()) return;
    tally.problems += "session " + std::to_string(seed) + "\n" + StoryOf(script, calls) + problems;
}

class RandomFaults : public testing::TestWithParam<std::uint64_t> {
 protected:
    // Runs sessions of one host process, one after the other.
    void RunProcess(std::uint64_t firstSeed, Tally& all) const {
        virtual_touchpad::TouchpadLayout layout;
        if (firstSeed / kSessionsOfProcess % 2 != 0) layout = kit::DetachableLayout();
        const ChildEnd end = RunInChild([&] {
            Tally tally;
            for (std::uint64_t i = 0; i < kSessionsOfProcess; ++i) {
                PlaySession(firstSeed + i, layout, folder_, tally);
            }
            std::ostringstream text;
            text << tally.calls << ' ' << tally.faults << '\n'
                 << (tally.heartbeat ? "terminate\n" : "normal\n") << tally.problems;
            return text.str();
        });
        std::istringstream text(end.output);
        Tally tally;
        text >> tally.calls >> tally.faults;
        all.calls += tally.calls;
        all.faults += tally.faults;
        EXPECT_EQ(end.output.substr(end.output.find('\n') + 1), end.end + "\n")
            << "in the process of the sessions from " << firstSeed;
    }

    const kit::TemporaryFolder temporary_;
    const std::filesystem::path& folder_ = temporary_.Path();
};

TEST_P(RandomFaults, NeverHangLeaveNothingBehindAndAreOverWithTheSession) {
    const std::uint64_t seed = GetParam() * kSessions;
    Tally all;
    for (std::uint64_t i = 0; i < kSessions; i += kSessionsOfProcess) RunProcess(seed + i, all);
    std::cout << "sessions " << seed << " to " << seed + kSessions - 1 << ": " << all.calls
              << " calls, " << all.faults << " of them failed\n";
    // Fewer than a quarter of the expected faults would mean a broken random choice.
    EXPECT_GT(all.faults * 4, all.calls / kOneIn);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomFaults, testing::Range(std::uint64_t{0}, kTests));

}  // namespace
}  // namespace faults
