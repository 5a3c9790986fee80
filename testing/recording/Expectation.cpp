#include "testing/recording/Expectation.h"

#include <algorithm>

#include "testing/recording/Replay.h"

namespace recording {
namespace {

using Lines = std::vector<std::string>;

void CompareChoice(const Json& machine, const std::string& kind, const Json& found, Lines& lines) {
    const Json chosen = RecordedChoice(machine, kind);
    if (chosen == found) return;
    lines.push_back("the " + kind + ": recorded " + chosen.dump() + ", found " + found.dump());
}

Lines Differences(const Json& machine, const Json& replay) {
    const Json& expected = machine.at("expected");
    Lines lines = replay["notRebuilt"];
    CompareChoice(machine, "touchpad", replay["touchpad"], lines);
    CompareChoice(machine, "haptic touchpad", replay["haptic"], lines);
    const Json level = expected.value("hapticLevel", Json());
    if (level != replay["hapticLevel"]) {
        lines.push_back("haptic level: recorded " + level.dump() + ", replayed " +
                        replay["hapticLevel"].dump());
    }
    const Lines inMeeting = MeetingDifferences(expected.at("meeting"), replay["meeting"]);
    lines.insert(lines.end(), inMeeting.begin(), inMeeting.end());
    return lines;
}

void AddMissing(const Lines& all, const Lines& others, const char* what, Lines& lines) {
    for (const std::string& line : all) {
        if (std::find(others.begin(), others.end(), line) == others.end()) {
            lines.push_back(what + line);
        }
    }
}

}  // namespace

std::vector<std::string> AddExpectation(Json& machine) {
    const Json replay = Replay(machine);
    Json& expected = machine["expected"];
    for (const char* const name : {"meeting", "hapticLevel"}) {
        if (!expected.contains(name)) expected[name] = replay[name];
    }
    const Lines lines = Differences(machine, replay);
    expected["differences"] = lines;
    return lines;
}

std::vector<std::string> Unexpected(const Json& machine) {
    const Json& expected = machine.at("expected");
    const Lines found = Differences(machine, Replay(machine));
    const Lines known = expected.at("differences");
    Lines lines;
    AddMissing(found, known, "new: ", lines);
    AddMissing(known, found, "gone: ", lines);
    return lines;
}

}  // namespace recording
