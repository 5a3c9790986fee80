// Reads a fuzzer's input byte by byte. Zeros follow after its end.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

// libFuzzer, or the replay program in its place, calls this function for each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

class FuzzInput {
 public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

    bool IsEmpty() const { return next_ == end_; }
    std::uint8_t Byte() { return IsEmpty() ? std::uint8_t{0} : *next_++; }
    std::uint16_t Word() {
        const unsigned low = Byte();
        return static_cast<std::uint16_t>(low | static_cast<unsigned>(Byte()) << 8);
    }
    bool Flag() { return (Byte() & 1U) != 0; }
    // Returns one of the choices.
    template <typename Choices>
    auto OneOf(const Choices& choices) {
        return *(std::begin(choices) + static_cast<std::ptrdiff_t>(
                                           Byte() % static_cast<std::size_t>(std::size(choices))));
    }
    // Returns `count` bytes, or the rest of the input.
    std::vector<std::uint8_t> Bytes(std::size_t count) {
        const std::uint8_t* const begin = next_;
        next_ += std::min(count, static_cast<std::size_t>(end_ - next_));
        return {begin, next_};
    }
    std::vector<std::uint8_t> Rest() { return Bytes(static_cast<std::size_t>(end_ - next_)); }

 private:
    const std::uint8_t* next_;
    const std::uint8_t* end_;
};

}  // namespace fuzz
