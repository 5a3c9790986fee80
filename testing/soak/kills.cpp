// Counts the lines that a killed host loses: those that were queued and not yet in the file. A host
// logs 1, 10 or 1,000 lines a second until it is terminated, at any moment or right after a line.
//
//   soak_kills [COUNT]   kills of each kind, 20 unless given
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>

#include "testing/kit/LogFolder.h"
#include "testing/soak/Agent.h"
#include "testing/soak/Figures.h"
#include "testing/soak/LogLines.h"

namespace {

using namespace soak;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kRates[] = {1, 10, 1000};
constexpr UINT kKilled = 9;

// Lies in memory that the host shares with this program, so it outlives the host.
struct Shared {
    std::atomic<std::int64_t> logged;  // calls that have returned
    std::atomic<bool> endBehindNextLine;
};

Shared& MapShared(const std::wstring& name) {
    const HANDLE mapping = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                              sizeof(Shared), name.c_str());
    void* const view = MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Shared));
    if (view == nullptr) throw std::runtime_error("no shared memory");
    return *static_cast<Shared*>(view);
}

// Never returns. The host logs by calling UnInit, which without a session only logs one line.
int BeHost(int rate, const std::filesystem::path& folder, const std::wstring& sharedName) {
    Shared& shared = MapShared(sharedName);
    const Agent agent;
    agent.InitLogger(folder.c_str());
    const Clock::time_point start = Clock::now();
    for (std::int64_t line = 0;; ++line) {
        std::this_thread::sleep_until(start + milliseconds(line * 1000 / rate));
        agent.UnInit();
        const bool end = shared.endBehindNextLine;
        ++shared.logged;
        if (end) TerminateProcess(GetCurrentProcess(), kKilled);
    }
}

HANDLE StartHost(int rate, const std::filesystem::path& folder, const std::wstring& sharedName) {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring commandLine = L"\"" + std::wstring(program) + L"\" --host " +
                               std::to_wstring(rate) + L" \"" + folder.wstring() + L"\" " +
                               sharedName;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(program, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &started)) {
        throw std::runtime_error("cannot start a host");
    }
    CloseHandle(started.hThread);
    return started.hProcess;
}

class Kills {
 public:
    explicit Kills(int count) : count_(count) {}

    int Run() {
        for (const int rate : kRates) {
            for (const bool behindALine : {false, true}) MeasureRate(rate, behindALine);
        }
        figures_.Judge("files with a torn line", torn_, torn_ == 0);
        figures_.Print();
        return figures_.ExitCode();
    }

 private:
    void MeasureRate(int rate, bool behindALine) {
        std::int64_t lost = 0;
        std::int64_t most = 0;
        int kills = 0;
        for (int i = 0; i < count_; ++i) {
            const std::int64_t lines = KillOne(rate, behindALine);
            lost += lines;
            most = std::max(most, lines);
            if (lines > 0) ++kills;
        }
        figures_.Note(std::to_string(rate) + " lines a second, killed " +
                          (behindALine ? "right behind a line" : "at any moment"),
                      std::to_string(lost) + " lost by " + std::to_string(kills) + " of " +
                          std::to_string(count_) + " kills, " + std::to_string(most) + " at most");
    }

    std::int64_t KillOne(int rate, bool behindALine) {
        const std::wstring name = L"VelaKills" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                                  std::to_wstring(++hosts_);
        const kit::LogFolder folder;
        Shared& shared = MapShared(name);
        const HANDLE host = StartHost(rate, folder.Path(), name);
        while (shared.logged == 0) Sleep(1);
        Sleep(std::uniform_int_distribution<DWORD>(200, 1200)(random_));
        if (behindALine) {
            shared.endBehindNextLine = true;
        } else {
            TerminateProcess(host, kKilled);
        }
        WaitForSingleObject(host, INFINITE);
        CloseHandle(host);
        LogLines lines;
        lines.Read(folder.File(), 0);
        if (!lines.torn.empty()) ++torn_;
        // A kill between a call and its count leaves one line more than the count.
        return std::max<std::int64_t>(shared.logged - static_cast<std::int64_t>(lines.count), 0);
    }

    const int count_;
    int hosts_ = 0;
    std::int64_t torn_ = 0;
    std::mt19937 random_{1};
    Figures figures_{"killed hosts"};
};

}  // namespace

int main(int argc, char** argv) {
    if (argc == 5 && std::string(argv[1]) == "--host") {
        return BeHost(std::atoi(argv[2]), argv[3], std::filesystem::path(argv[4]).wstring());
    }
    constexpr int kKills = 20;
    return Kills(argc > 1 ? std::atoi(argv[1]) : kKills).Run();
}
