#include "bench/native/BareLogFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

namespace bench {

void WriteBareLines(const std::filesystem::path& file, int lines) {
    const std::string line =
        std::string("[2026-01-01 10:00:00] {INFO @ ") + kBareFunction + "} " + kBareMessage + "\n";
    for (int i = 0; i < lines; ++i) {
        struct stat status {};
        if (stat(file.c_str(), &status) == 0 && status.st_size > 0x500000) return;
        const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
        if (write(descriptor, line.data(), line.size()) < 0) {
            throw std::runtime_error("the bare log cannot be written");
        }
        close(descriptor);
    }
}

}  // namespace bench
