// How often an idle agent's threads wake up: reader, writer and the logger's. Usage: idle [SECONDS]
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include <unistd.h>

#include "bench/Table.h"
#include "bench/native/Stage.h"
#include "log/ILog.h"

namespace {

// Each time that a thread went to sleep on its own, it had been woken.
long Sleeps() {
    constexpr char kField[] = "voluntary_ctxt_switches:";
    long sleeps = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        if (task.path().filename() == std::to_string(getpid())) continue;
        std::ifstream status(task.path() / "status");
        for (std::string word; status >> word;) {
            if (word != kField) continue;
            long count = 0;
            status >> count;
            sleeps += count;
        }
    }
    return sleeps;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace bench;
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 60;
    const LogFolder folder;
    vela::GetLogger()->Initialize(folder.ForAgent());
    {
        Stage stage;
        // What setting up queued is written meanwhile.
        std::this_thread::sleep_for(std::chrono::seconds(1));
        const long before = Sleeps();
        std::this_thread::sleep_for(std::chrono::seconds(seconds));
        const long woken = Sleeps() - before;
        Print({"wake-ups while idle, " + std::to_string(seconds) + " s", std::to_string(woken),
               "nothing to do: 0", "+" + std::to_string(woken), "0", woken == 0});
    }
    vela::GetLogger()->UnInitialize();
}
