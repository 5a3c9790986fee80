#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

// Link collections 1, with 2 and 3 in it, and 4.
ReportDescriptorBuilder Nested() {
    return Application()
        .Usage(0x90)
        .Collection(CollectionKind::Physical)
        .Usage(0x91)
        .Collection(CollectionKind::Logical)
        .EndCollection()
        .UsagePage(kOtherPage)
        .Usage(0x92)
        .Collection(CollectionKind::Logical)
        .EndCollection()
        .EndCollection()
        .Raw({0xA1, 0x84})  // of a vendor's type, without a usage
        .EndCollection();
}

TEST(LinkCollectionNodes, BeginWithTheChildThatOpenedLast) {
    struct {
        USAGE page, usage;
        USHORT parent, children, nextSibling, firstChild;
        unsigned type;
    } const expected[] = {
        {kPage, 0x80, 0, 2, 0, 4, 0x01},      {kPage, 0x90, 0, 2, 0, 3, 0x00},
        {kPage, 0x91, 1, 0, 0, 0, 0x02},      {kOtherPage, 0x92, 1, 0, 2, 0, 0x02},
        {kOtherPage, 0x00, 0, 0, 1, 0, 0x84},
    };
    const auto nodes = ParsedDevice(Nested()).Nodes();
    ASSERT_EQ(nodes.size(), std::size(expected));
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        EXPECT_EQ(nodes[i].LinkUsagePage, expected[i].page) << i;
        EXPECT_EQ(nodes[i].LinkUsage, expected[i].usage) << i;
        EXPECT_EQ(nodes[i].Parent, expected[i].parent) << i;
        EXPECT_EQ(nodes[i].NumberOfChildren, expected[i].children) << i;
        EXPECT_EQ(nodes[i].NextSibling, expected[i].nextSibling) << i;
        EXPECT_EQ(nodes[i].FirstChild, expected[i].firstChild) << i;
        EXPECT_EQ(nodes[i].CollectionType, expected[i].type) << i;
        EXPECT_EQ(nodes[i].IsAlias, 0u) << i;
    }
}

TEST(LinkCollectionNodes, TakeAndReturnTheirLength) {
    const ParsedDevice device(Nested());
    HIDP_LINK_COLLECTION_NODE nodes[6]{};
    nodes[0].LinkUsage = 0x1234;
    ULONG length = 4;
    EXPECT_EQ(HidP_GetLinkCollectionNodes(nodes, &length, device.Preparsed()),
              HIDP_STATUS_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 5u);
    EXPECT_EQ(nodes[0].LinkUsage, 0x1234);
    length = 6;
    EXPECT_EQ(HidP_GetLinkCollectionNodes(nodes, &length, device.Preparsed()), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(length, 5u);
    EXPECT_EQ(HidP_GetLinkCollectionNodes(nodes, &length, nullptr),
              HIDP_STATUS_INVALID_PREPARSED_DATA);
}

}  // namespace
}  // namespace simulator::hid
