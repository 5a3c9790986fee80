#include "testing/kit/TemporaryFolder.h"

#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace kit {

TemporaryFolder::TemporaryFolder() {
    std::random_device random;
    do {
        path_ = std::filesystem::temp_directory_path() / ("vela-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string FileText(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

}  // namespace kit
