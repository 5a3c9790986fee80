// Fields of a report: little-endian runs of bits that may start anywhere and cross byte boundaries.
#pragma once

#include <cstdint>

namespace simulator::hid {

// The bits of a value in the platform's calls. A descriptor may declare wider fields.
constexpr std::uint32_t kMaxValueBits = 32;

// Bit 0 is the lowest bit of byte 0. The result is not sign-extended; of a field of more than 32
// bits it is the lowest 32.
inline std::uint32_t GetBits(const std::uint8_t* report, std::uint32_t start, std::uint32_t size) {
    std::uint32_t value = 0;
    for (std::uint32_t i = 0; i < size && i < kMaxValueBits; ++i) {
        const std::uint32_t bit = start + i;
        value |= ((report[bit / 8] >> (bit % 8)) & 1U) << i;
    }
    return value;
}

// Writes the lowest `size` bits of the value, with zeros above its 32 bits, and keeps all other
// bits of the report.
inline void SetBits(std::uint8_t* report, std::uint32_t start, std::uint32_t size,
                    std::uint32_t value) {
    for (std::uint32_t i = 0; i < size; ++i) {
        const std::uint32_t bit = start + i;
        const auto mask = static_cast<std::uint8_t>(1U << (bit % 8));
        const bool isSet = i < kMaxValueBits && ((value >> i) & 1U) != 0;
        report[bit / 8] =
            static_cast<std::uint8_t>(isSet ? report[bit / 8] | mask : report[bit / 8] & ~mask);
    }
}

}  // namespace simulator::hid
