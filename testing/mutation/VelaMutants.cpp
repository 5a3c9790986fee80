#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <string>

namespace {

constexpr unsigned kMostMutants = 0x40000;

// Shared with the processes that this one forks.
std::atomic<bool> noted[kMostMutants];

unsigned ActiveMutant() {
    const char* const number = std::getenv("VELA_MUTANT");
    return number == nullptr ? 0 : static_cast<unsigned>(std::atoi(number));
}

// Opens the file for each line, as some tests count open files, and keeps the error number.
void Note(const char* path, unsigned number) {
    if (noted[number].exchange(true)) return;
    const int error = errno;
    const int file = open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    const std::string line = std::to_string(number) + '\n';
    if (file < 0 || write(file, line.data(), line.size()) < 0) std::abort();
    close(file);
    errno = error;
}

}  // namespace

bool vela_mutant(unsigned number) {
    static const unsigned active = ActiveMutant();
    static const char* const reached = std::getenv("VELA_MUTANTS_REACHED");
    if (reached != nullptr) Note(reached, number);
    return number == active;
}
