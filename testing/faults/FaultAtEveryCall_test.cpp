// Runs each script for a host and its touchpad once for each of its platform calls and each way in
// which that call can fail. After every run the log has exactly the lines of that failure, nothing
// is left behind, and the next session works.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <sstream>

#include "testing/faults/Aftermath.h"
#include "testing/faults/ChildProcess.h"
#include "testing/faults/Effort.h"
#include "testing/faults/Outcome.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/kit/native/PlausibleFaults.h"

namespace faults {
namespace {

using simulator::Fault;

// The platform calls and the host's events of a run without any failure.
struct CleanRun {
    std::vector<WatchedCall> calls;
    std::vector<std::string> events;
};

constexpr const char* kEndOfCalls = "-\n";

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// A share of a script's calls. Each share is a test; the tests may run in parallel.
struct Part {
    const Script* script;
    std::size_t number;
};

void PrintTo(const Part& part, std::ostream* out) { *out << part.script->name << part.number; }

// Returns at least one fault for every call that can fail.
std::vector<Fault> FaultsToTry(const WatchedCall& call, std::size_t number) {
    const std::vector<Fault> all = kit::PlausibleFaults(call.function, call.arguments);
    std::vector<Fault> chosen;
    if (all.empty()) return chosen;
    const std::size_t first = number % kEffort.oneFaultIn % all.size();
    for (std::size_t i = first; i < all.size(); i += kEffort.oneFaultIn) chosen.push_back(all[i]);
    return chosen;
}

class FaultAtEveryCall : public testing::TestWithParam<Part> {
 protected:
    static const Script& TheScript() { return *GetParam().script; }

    CleanRun RunClean() const {
        const ChildEnd end = RunInChild([this] {
            ScriptFixture fixture(TheScript().layout, TheScript().subject, folder_,
                                  [](const WatchedCall&) { return std::nullopt; });
            fixture.Play(TheScript().steps);
            std::string events;
            for (const std::string& event : fixture.Events()) events += event + "\n";
            return ToText(fixture.Watch().Calls()) + kEndOfCalls + events;
        });
        const std::size_t calls = end.output.find(std::string("\n") + kEndOfCalls) + 1;
        return {CallsFromText(end.output.substr(0, calls)),
                Lines(end.output.substr(calls + std::string(kEndOfCalls).size()))};
    }

    void RunFailing(const CleanRun& clean, std::size_t index, const Fault& fault) const {
        const WatchedCall& chosen = clean.calls[index];
        const ChildEnd end = RunInChild([&] {
            ScriptFixture fixture(TheScript().layout, TheScript().subject, folder_,
                                  [&](const WatchedCall& call) -> std::optional<Fault> {
                                      if (call.Site() == chosen.Site()) return fault;
                                      return std::nullopt;
                                  });
            fixture.Play(TheScript().steps);
            const std::vector<WatchedCall> calls = fixture.Watch().Calls();
            const bool failed = std::any_of(calls.begin(), calls.end(),
                                            [](const WatchedCall& call) { return call.failed; });
            std::string problems = failed ? "" : "  the call was not made\n";
            problems +=
                Compare(fixture.Events(), clean.events, OutcomeOf(clean.calls, index, fault));
            problems += Leftovers(fixture);
            problems += Reopen(fixture);
            return (HeartbeatWasStarted(fixture) ? "terminate\n" : "normal\n") + problems;
        });
        EXPECT_EQ(end.output, end.end + "\n")
            << TheScript().name << ", " << chosen.Text() << ": " << kit::ToText(fault);
    }

    // Returns the indices of the calls to fail, in the order of their sites, which is the same in
    // every process.
    static std::vector<std::size_t> CallsToFail(const CleanRun& clean) {
        const auto& steps = TheScript().steps;
        const auto position = [&steps](const std::string& name) {
            return std::find_if(steps.begin(), steps.end(),
                                [&name](const Step& step) { return step.name == name; });
        };
        std::vector<std::size_t> indices;
        for (std::size_t i = 0; i < clean.calls.size(); ++i) {
            const bool late =
                position(clean.calls[i].step) >= position(TheScript().firstStepToFail);
            if (late) indices.push_back(i);
        }
        std::sort(indices.begin(), indices.end(), [&clean](std::size_t a, std::size_t b) {
            return clean.calls[a].Site() < clean.calls[b].Site();
        });
        return indices;
    }

    const kit::TemporaryFolder temporary_;
    const std::filesystem::path& folder_ = temporary_.Path();
};

TEST_P(FaultAtEveryCall, IsLoggedLeavesNothingBehindAndIsOverWithTheSession) {
    const CleanRun clean = RunClean();
    const std::vector<std::size_t> indices = CallsToFail(clean);
    EXPECT_GE(indices.size(), TheScript().leastCalls);
    std::size_t calls = 0;
    std::size_t runs = 0;
    for (std::size_t i = GetParam().number; i < indices.size(); i += TheScript().parts) {
        ++calls;
        for (const Fault& fault : FaultsToTry(clean.calls[indices[i]], i)) {
            RunFailing(clean, indices[i], fault);
            ++runs;
        }
    }
    std::cout << TheScript().name << ": " << calls << " of " << indices.size() << " calls, " << runs
              << " runs\n";
}

std::vector<Part> Parts() {
    std::vector<Part> parts;
    for (const Script& script : AllScripts()) {
        for (std::size_t i = 0; i < script.parts; ++i) parts.push_back({&script, i});
    }
    return parts;
}

INSTANTIATE_TEST_SUITE_P(Scripts, FaultAtEveryCall, testing::ValuesIn(Parts()),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace faults
