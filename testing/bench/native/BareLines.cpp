#include "testing/bench/BareLines.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

namespace bench {

void WriteBareLines(const std::filesystem::path& file, const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        struct stat status {};
        stat(file.c_str(), &status);
        const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
        if (write(descriptor, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
            throw std::runtime_error("the bare log cannot be written");
        }
        close(descriptor);
    }
}

}  // namespace bench
