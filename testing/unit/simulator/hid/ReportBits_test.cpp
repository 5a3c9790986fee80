#include "testing/simulator/hid/ReportBits.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace simulator::hid {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(ReportBits, AreCountedFromTheLowestBitOfTheFirstByte) {
    std::uint8_t report[3] = {};
    SetBits(report, 9, 1, 1);
    EXPECT_EQ(report[0], 0x00);
    EXPECT_EQ(report[1], 0x02);
    EXPECT_EQ(report[2], 0x00);
}

TEST(ReportBits, AreLittleEndian) {
    std::uint8_t report[5] = {};
    SetBits(report, 8, 32, 0x12345678);
    EXPECT_EQ(Bytes(report, report + 5), (Bytes{0x00, 0x78, 0x56, 0x34, 0x12}));
}

TEST(ReportBits, CrossByteBoundaries) {
    std::uint8_t report[3] = {};
    SetBits(report, 5, 12, 0xABC);
    EXPECT_EQ(Bytes(report, report + 3), (Bytes{0x80, 0x57, 0x01}));
    EXPECT_EQ(GetBits(report, 5, 12), 0xABCu);
}

// Tests every width at every bit of a byte, between zeros and between ones.
TEST(ReportBits, EveryFieldReadsBackAndKeepsItsNeighbours) {
    std::mt19937 random(1);
    for (const std::uint8_t background : Bytes{0x00, 0xFF}) {
        for (std::uint32_t size = 1; size <= 32; ++size) {
            for (std::uint32_t start = 0; start < 16; ++start) {
                Bytes report(7, background);
                const auto value = static_cast<std::uint32_t>(random());
                const std::uint32_t mask = size == 32 ? ~0u : (1u << size) - 1;
                SetBits(report.data(), start, size, value);
                EXPECT_EQ(GetBits(report.data(), start, size), value & mask);
                SetBits(report.data(), start, size, background == 0 ? 0u : ~0u);
                EXPECT_EQ(report, Bytes(7, background)) << "size " << size << " at bit " << start;
            }
        }
    }
}

}  // namespace
}  // namespace simulator::hid
