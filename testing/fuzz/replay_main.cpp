// Runs a fuzzer without libFuzzer on every input of a corpus folder, then on a fixed number of
// inputs that a seeded generator makes of them, the same ones each time.
//
//     fuzz_NAME CORPUS_FOLDER [NUMBER_OF_MADE_INPUTS]
//     fuzz_NAME INPUT_FILE
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "testing/fuzz/FuzzInput.h"

// Sanitizers end the process without a signal. The function exists in programs built with one.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the sanitizers' name
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kMaximumLength = 1024;

// The current input, which is printed with a finding.
std::string currentName;
Bytes currentInput;

void PrintInput() {
    std::cerr << "input " << currentName << ':' << std::hex << std::setfill('0');
    for (const unsigned byte : currentInput) std::cerr << ' ' << std::setw(2) << byte;
    std::cerr << std::endl;
}

extern "C" void PrintInputAtSignal(int signal) {
    PrintInput();
    static_cast<void>(std::signal(signal, SIG_DFL));
    static_cast<void>(std::raise(signal));
}

void Run(std::string name, Bytes input) {
    currentName = std::move(name);
    currentInput = std::move(input);
    LLVMFuzzerTestOneInput(currentInput.data(), currentInput.size());
}

class InputMaker {
 public:
    InputMaker(std::vector<Bytes> corpus, unsigned seed)
        : corpus_(std::move(corpus)), random_(seed) {}

    Bytes Make() {
        if (corpus_.empty() || Below(8) == 0) return Random(Below(96));
        Bytes input = corpus_[Below(corpus_.size())];
        for (std::size_t changes = 1 + Below(6); changes != 0; --changes) Change(input);
        if (input.size() > kMaximumLength) input.resize(kMaximumLength);
        return input;
    }

 private:
    std::size_t Below(std::size_t bound) { return random_() % bound; }
    std::uint8_t Byte() { return static_cast<std::uint8_t>(random_()); }

    Bytes Random(std::size_t length) {
        Bytes bytes(length);
        std::generate(bytes.begin(), bytes.end(), [this] { return Byte(); });
        return bytes;
    }

    Bytes Piece(const Bytes& bytes) {
        if (bytes.empty()) return {};
        const std::size_t at = Below(bytes.size());
        const std::size_t length = 1 + Below(std::min<std::size_t>(bytes.size() - at, 16));
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        return {begin, begin + static_cast<std::ptrdiff_t>(length)};
    }

    void Change(Bytes& bytes) {
        const auto at = static_cast<std::ptrdiff_t>(Below(bytes.size() + 1));
        const auto place = bytes.begin() + at;
        const bool atEnd = place == bytes.end();
        switch (Below(6)) {
            case 0:
                if (!atEnd) *place = static_cast<std::uint8_t>(*place ^ (1U << Below(8)));
                break;
            case 1:
                if (!atEnd) *place = Byte();
                break;
            case 2:
                if (!atEnd) bytes.erase(place);
                break;
            case 3:
                bytes.insert(place, Byte());
                break;
            case 4:
                bytes.resize(static_cast<std::size_t>(at));
                break;
            default: {
                const Bytes piece = Piece(corpus_[Below(corpus_.size())]);
                bytes.insert(place, piece.begin(), piece.end());
            }
        }
    }

    std::vector<Bytes> corpus_;
    std::mt19937 random_;
};

Bytes ReadFile(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount < 2 || !std::filesystem::exists(arguments[1])) {
        std::cerr << "usage: " << arguments[0] << " CORPUS_FOLDER [NUMBER] | INPUT_FILE\n";
        return 2;
    }
    for (const int signal : {SIGABRT, SIGSEGV, SIGFPE}) {
        static_cast<void>(std::signal(signal, PrintInputAtSignal));
    }
    if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(PrintInput);

    const std::filesystem::path source = arguments[1];
    if (std::filesystem::is_regular_file(source)) {
        Run(source.string(), ReadFile(source));
        return 0;
    }
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(source)) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    std::vector<Bytes> corpus;
    for (const std::filesystem::path& file : files) {
        corpus.push_back(ReadFile(file));
        Run(file.string(), corpus.back());
    }
    constexpr unsigned kSeed = 20240229;
    InputMaker maker(corpus, kSeed);
    const int made = argumentCount > 2 ? std::stoi(arguments[2]) : 0;
    for (int number = 1; number <= made; ++number)
        Run("made " + std::to_string(number), maker.Make());
    std::cout << corpus.size() << " inputs of the corpus, " << made << " made of them\n";
    return corpus.empty() ? 1 : 0;
}
