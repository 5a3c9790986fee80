#include "testing/soak/LogSegments.h"

#include <chrono>
#include <fstream>
#include <thread>

namespace soak {
namespace {

// The threads' actions in a segment. Their lines stay well below the length at which the file is
// moved away: a second move would rightly delete the file that was moved first.
constexpr std::int64_t kActions = 4000;

// Just below the limit: some dozen lines exceed it, which a busy machine logs as well.
constexpr std::uintmax_t kLongFile = 0x500000 - 0x1000;

}  // namespace

LogSegments::LogSegments(const Agent& agent)
    : agent_(agent), file_(folder_.File()), backup_(folder_.Backup()) {}

void LogSegments::Run(const HostThreads& host, Allowance& allowance) {
    const std::uintmax_t filling = figures_.segments % 2 == 0 ? 0 : kLongFile;
    PrepareFile(filling);
    allowance.Grant(kActions);
    agent_.InitLogger(folder_.Path().wstring().c_str());
    const MarkCounts from = host.Marks();
    while (allowance.Left() > kActions / 4 && !allowance.IsOver()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        // A nested InitLogger and UnInitLogger change nothing.
        agent_.InitLogger(L"elsewhere");
        agent_.UnInitLogger();
    }
    const MarkCounts to = host.Marks();
    agent_.UnInitLogger();
    ReadFiles(filling, from, to);
}

void LogSegments::PrepareFile(std::uintmax_t filling) const {
    std::filesystem::remove(file_);
    std::filesystem::remove(backup_);
    if (filling == 0) return;
    std::ofstream(file_, std::ios::binary).close();
    std::filesystem::resize_file(file_, filling);
}

void LogSegments::ReadFiles(std::uintmax_t filling, const MarkCounts& from, const MarkCounts& to) {
    ++figures_.segments;
    LogLines lines;
    if (std::filesystem::exists(backup_)) {
        ++figures_.rotations;
        lines.Read(backup_, filling);
        lines.Read(file_, 0);
    } else {
        lines.Read(file_, filling);
    }
    figures_.lines += lines.count;
    if (!lines.torn.empty()) Wrong("no line of the log: " + lines.torn);
    for (unsigned i = 0; i < kMarkingThreads; ++i) {
        figures_.marks += static_cast<std::int64_t>(lines.marks[i].size());
        CompareMarks(i, lines.marks[i], from[i], to[i]);
    }
}

// Every call that began after the start and returned before the stop must be in the file; one that
// was running at either may be. A line delayed from before the start may come first, with a gap
// after it for calls made while the logger was stopped. From the start on there is no gap.
void LogSegments::CompareMarks(unsigned thread, const std::vector<std::uint32_t>& numbers,
                               std::uint32_t from, std::uint32_t to) {
    const std::string who = "thread " + std::to_string(thread);
    if (numbers.empty()) {
        if (to > from + 1) Wrong(who + " has no line at all");
        return;
    }
    const std::uint32_t started = from + 1;
    if (numbers.front() > started) Wrong(who + " lost its first lines");
    if (numbers.back() + 1 < to) Wrong(who + " lost its last lines");
    for (std::size_t i = 1; i < numbers.size(); ++i) {
        const bool mayHaveGap = numbers[i] <= started && numbers[i] > numbers[i - 1];
        if (mayHaveGap || numbers[i] == numbers[i - 1] + 1) continue;
        Wrong(who + " has line " + std::to_string(numbers[i]) + " behind " +
              std::to_string(numbers[i - 1]));
    }
}

void LogSegments::Wrong(const std::string& what) {
    if (figures_.wrong.empty()) figures_.wrong = what;
}

}  // namespace soak
