#include "testing/simulator/hid/DescriptorItems.h"

#include <gtest/gtest.h>

#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator::hid {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(DescriptorItems, HaveNoneOneTwoOrFourDataBytes) {
    const Bytes bytes{0x14, 0x15, 0x01, 0x16, 0x02, 0x03, 0x17, 0x04, 0x05, 0x06, 0x07};
    DescriptorItems items(bytes);
    const std::uint32_t values[] = {0, 0x01, 0x0302, 0x07060504};
    const int sizes[] = {0, 1, 2, 4};
    for (int i = 0; i < 4; ++i) {
        const auto item = items.Next();
        ASSERT_TRUE(item);
        EXPECT_EQ(item->tag, ItemTag::LogicalMinimum);
        EXPECT_EQ(item->value, values[i]);
        EXPECT_EQ(item->size, sizes[i]);
    }
    EXPECT_FALSE(items.Next());
}

TEST(DescriptorItems, SignsAreReadAtTheItemsOwnWidth) {
    const Bytes bytes{0x15, 0xFF, 0x16, 0xFF, 0xFF, 0x17, 0xFF, 0xFF, 0xFF, 0xFF, 0x16, 0xFF, 0x00};
    DescriptorItems items(bytes);
    EXPECT_EQ(items.Next()->SignedValue(), -1);
    EXPECT_EQ(items.Next()->SignedValue(), -1);
    EXPECT_EQ(items.Next()->SignedValue(), -1);
    EXPECT_EQ(items.Next()->SignedValue(), 255);
}

TEST(DescriptorItems, LongItemsArePassedOver) {
    const Bytes bytes{0xFE, 0x02, 0xF0, 0xC0, 0xC0, 0xFE, 0x00, 0xF1, 0x75, 0x08};
    DescriptorItems items(bytes);
    const auto item = items.Next();
    ASSERT_TRUE(item);
    EXPECT_EQ(item->tag, ItemTag::ReportSize);
    EXPECT_EQ(item->offset, 8u);
    EXPECT_FALSE(items.Next());
}

TEST(DescriptorItems, CutShortAreRefusedWithTheirPlace) {
    for (const Bytes& bytes :
         {Bytes{0x14, 0x75}, Bytes{0x14, 0x76, 0x08}, Bytes{0x14, 0x77, 1, 2, 3}, Bytes{0x14, 0xFE},
          Bytes{0x14, 0xFE, 0x00}, Bytes{0x14, 0xFE, 0x03, 0xF0, 1, 2}}) {
        DescriptorItems items(bytes);
        EXPECT_TRUE(items.Next());
        try {
            items.Next();
            FAIL() << bytes.size() << " bytes were accepted";
        } catch (const DescriptorError& error) {
            EXPECT_NE(std::string(error.what()).find("byte 1"), std::string::npos) << error.what();
        }
    }
}

}  // namespace
}  // namespace simulator::hid
