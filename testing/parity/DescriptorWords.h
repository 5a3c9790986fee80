// Shorthands for handwritten descriptors that the builder lacks.
#pragma once

#include <cstdint>
#include <vector>

#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace parity {

using virtual_touchpad::CollectionKind;
using virtual_touchpad::kConstant;
using virtual_touchpad::kDataArray;
using virtual_touchpad::kDataVariable;
using virtual_touchpad::ReportDescriptorBuilder;
using Main = virtual_touchpad::MainItem;
using Bytes = std::vector<std::uint8_t>;

constexpr std::uint16_t kGenericDesktopPage = 0x01;
constexpr std::uint16_t kKeyboardPage = 0x07;
constexpr std::uint16_t kLedPage = 0x08;
constexpr std::uint16_t kButtonPage = 0x09;
constexpr std::uint16_t kConsumerPage = 0x0C;
constexpr std::uint16_t kDigitizerPage = 0x0D;
constexpr std::uint16_t kVendorPage = 0xFF80;
constexpr std::uint16_t kOtherVendorPage = 0xFF81;

constexpr std::uint8_t kRelative = 0x04;
constexpr std::uint8_t kNullState = 0x40;

inline Bytes Push() { return {0xA4}; }
inline Bytes Pop() { return {0xB4}; }

// Logical and physical limits as two's complement numbers of 16 bits.
inline Bytes Bounds(std::uint8_t minimumPrefix, std::uint8_t maximumPrefix, int minimum,
                    int maximum) {
    const auto low = [](int value) { return static_cast<std::uint8_t>(value & 0xFF); };
    const auto high = [](int value) { return static_cast<std::uint8_t>((value >> 8) & 0xFF); };
    return {minimumPrefix, low(minimum), high(minimum), maximumPrefix, low(maximum), high(maximum)};
}
inline Bytes Logical(int minimum, int maximum) { return Bounds(0x16, 0x26, minimum, maximum); }
inline Bytes Physical(int minimum, int maximum) { return Bounds(0x36, 0x46, minimum, maximum); }
inline Bytes UnitWithExponent(std::uint8_t unit, std::uint8_t exponent) {
    return {0x65, unit, 0x55, exponent};
}

// A usage that contains its usage page.
inline Bytes UsageOnPage(std::uint16_t page, std::uint16_t usage) {
    return {0x0B, static_cast<std::uint8_t>(usage), static_cast<std::uint8_t>(usage >> 8),
            static_cast<std::uint8_t>(page), static_cast<std::uint8_t>(page >> 8)};
}

inline ReportDescriptorBuilder Application(std::uint16_t page = kVendorPage,
                                           std::uint16_t usage = 0x80) {
    ReportDescriptorBuilder builder;
    builder.UsagePage(page).Usage(usage).Collection(CollectionKind::Application);
    return builder;
}
inline Bytes Closed(ReportDescriptorBuilder builder) { return builder.EndCollection().Bytes(); }

}  // namespace parity
