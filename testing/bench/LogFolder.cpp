#include "testing/bench/LogFolder.h"

#include <random>
#include <system_error>

namespace bench {

LogFolder::LogFolder() {
    std::random_device random;
    do {
        folder_ =
            std::filesystem::temp_directory_path() / ("vela-bench-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(folder_));
}

LogFolder::~LogFolder() {
    std::error_code ignored;
    std::filesystem::remove(AgentLog(), ignored);
    std::filesystem::remove_all(folder_, ignored);
}

std::filesystem::path LogFolder::AgentLog() const { return folder_.string() + "\\VelaAgent.log"; }

}  // namespace bench
