// The simulator's parser lists what Windows recorded of the same descriptors.
#include "testing/unit/simulator/hid/recorded/RecordedCollections.h"

#include <ostream>

#include <gtest/gtest.h>

#include "testing/simulator/hid/Collection.h"
#include "testing/simulator/hid/PreparsedData.h"

namespace simulator::hid {

void PrintTo(const RecordedCollection& recorded, std::ostream* out) { *out << recorded.name; }

namespace {

constexpr HIDP_REPORT_TYPE kTypes[] = {HidP_Input, HidP_Output, HidP_Feature};

std::vector<RecordedCapability> OfType(const std::vector<RecordedCapability>& all,
                                       HIDP_REPORT_TYPE type) {
    std::vector<RecordedCapability> ofType;
    for (const RecordedCapability& recorded : all) {
        if (recorded.type == type) ofType.push_back(recorded);
    }
    return ofType;
}

class RecordedCollections : public testing::TestWithParam<RecordedCollection> {
 protected:
    // Several top-level collections have different usages.
    static std::size_t Position(const RecordedCollection& recorded) {
        const auto collections = ParseReportDescriptor(recorded.descriptor);
        for (std::size_t i = 0; i < collections.size(); ++i) {
            const HIDP_CAPS caps = CapsOf(*collections[i]);
            if (caps.UsagePage == recorded.page && caps.Usage == recorded.usage) return i;
        }
        throw std::out_of_range("no such collection");
    }

    template <typename Caps>
    void ExpectRecord(const Caps& caps, const RecordedCapability& recorded) {
        const RecordedNode& link = recorded_.nodes.at(recorded.linkCollection);
        EXPECT_EQ(caps.UsagePage, recorded.page);
        EXPECT_EQ(caps.ReportID, recorded.reportId);
        EXPECT_EQ(caps.BitField, recorded.flags);
        EXPECT_EQ(caps.LinkCollection, recorded.linkCollection);
        EXPECT_EQ(caps.LinkUsage, link.usage);
        EXPECT_EQ(caps.LinkUsagePage, link.page);
        EXPECT_EQ(caps.IsAbsolute, (recorded.flags & 0x04) == 0);
        EXPECT_FALSE(caps.IsAlias || caps.IsStringRange || caps.IsDesignatorRange);
        EXPECT_EQ(caps.IsRange != 0, recorded.usages.isRange);
        EXPECT_EQ(caps.Range.UsageMin, recorded.usages.first);
        EXPECT_EQ(caps.Range.DataIndexMin, recorded.dataIndex);
        if (!recorded.usages.isRange) return;
        EXPECT_EQ(caps.Range.UsageMax, recorded.usages.last);
        EXPECT_EQ(caps.Range.DataIndexMax,
                  recorded.dataIndex + recorded.usages.last - recorded.usages.first);
    }

    void ExpectValue(const HIDP_VALUE_CAPS& caps, const RecordedCapability& recorded) {
        EXPECT_EQ(caps.BitSize, recorded.place.bits);
        EXPECT_EQ(caps.ReportCount, recorded.place.count);
        EXPECT_EQ(caps.HasNull, (recorded.flags & 0x40) != 0);
        EXPECT_EQ(caps.LogicalMin, recorded.limits.logicalMinimum);
        EXPECT_EQ(caps.LogicalMax, recorded.limits.logicalMaximum);
        EXPECT_EQ(caps.PhysicalMin, recorded.limits.physicalMinimum);
        EXPECT_EQ(caps.PhysicalMax, recorded.limits.physicalMaximum);
        EXPECT_EQ(caps.Units, recorded.unit);
        EXPECT_EQ(static_cast<LONG>(caps.UnitsExp), recorded.unitExponent);
    }

    // The platform's calls do not list where a field lies.
    static void ExpectPlace(const Capability& capability, const RecordedPlace& place) {
        EXPECT_EQ(capability.startBit, 8 * place.byte + place.bit);
        EXPECT_EQ(capability.globals.reportSize, place.bits);
        EXPECT_EQ(capability.fieldCount, place.count);
    }

    const ReportLayout& Reports(HIDP_REPORT_TYPE type) const {
        return *FindPreparsedData(device_.Preparsed())->FindReports(type);
    }

    const RecordedCollection recorded_ = GetParam();
    const ParsedDevice device_{recorded_.descriptor, Position(recorded_)};
};

TEST_P(RecordedCollections, HaveTheirCounts) {
    const HIDP_CAPS caps = device_.Caps();
    EXPECT_EQ(caps.InputReportByteLength, recorded_.reportLengths[HidP_Input]);
    EXPECT_EQ(caps.OutputReportByteLength, recorded_.reportLengths[HidP_Output]);
    EXPECT_EQ(caps.FeatureReportByteLength, recorded_.reportLengths[HidP_Feature]);
    EXPECT_EQ(caps.NumberLinkCollectionNodes, recorded_.nodes.size());
    const USHORT dataIndices[] = {caps.NumberInputDataIndices, caps.NumberOutputDataIndices,
                                  caps.NumberFeatureDataIndices};
    for (const HIDP_REPORT_TYPE type : kTypes) {
        int usages = 0;
        for (const auto* list : {&recorded_.buttons, &recorded_.values}) {
            for (const RecordedCapability& recorded : OfType(*list, type)) {
                usages += recorded.usages.last - recorded.usages.first + 1;
            }
        }
        EXPECT_EQ(dataIndices[type], usages) << type;
    }
}

TEST_P(RecordedCollections, HaveTheirButtons) {
    for (const HIDP_REPORT_TYPE type : kTypes) {
        const auto recorded = OfType(recorded_.buttons, type);
        const auto caps = device_.ButtonCaps(type);
        ASSERT_EQ(caps.size(), recorded.size()) << type;
        for (std::size_t i = 0; i < caps.size(); ++i) {
            SCOPED_TRACE("type " + std::to_string(type) + ", button " + std::to_string(i));
            ExpectRecord(caps[i], recorded[i]);
            ExpectPlace(Reports(type).Buttons()[i], recorded[i].place);
        }
    }
}

TEST_P(RecordedCollections, HaveTheirValues) {
    for (const HIDP_REPORT_TYPE type : kTypes) {
        const auto recorded = OfType(recorded_.values, type);
        const auto caps = device_.ValueCaps(type);
        ASSERT_EQ(caps.size(), recorded.size()) << type;
        for (std::size_t i = 0; i < caps.size(); ++i) {
            SCOPED_TRACE("type " + std::to_string(type) + ", value " + std::to_string(i));
            ExpectRecord(caps[i], recorded[i]);
            ExpectValue(caps[i], recorded[i]);
            ExpectPlace(Reports(type).Values()[i], recorded[i].place);
        }
    }
}

TEST_P(RecordedCollections, HaveTheirLinkCollections) {
    const auto nodes = device_.Nodes();
    ASSERT_EQ(nodes.size(), recorded_.nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(nodes[i].LinkUsagePage, recorded_.nodes[i].page);
        EXPECT_EQ(nodes[i].LinkUsage, recorded_.nodes[i].usage);
        EXPECT_EQ(nodes[i].Parent, recorded_.nodes[i].parent);
        EXPECT_EQ(nodes[i].NumberOfChildren, recorded_.nodes[i].children);
        EXPECT_EQ(nodes[i].NextSibling, recorded_.nodes[i].nextSibling);
        EXPECT_EQ(nodes[i].FirstChild, recorded_.nodes[i].firstChild);
        EXPECT_EQ(nodes[i].CollectionType, recorded_.nodes[i].type);
        EXPECT_EQ(nodes[i].IsAlias, 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, RecordedCollections,
                         testing::Values(GameController(), Joystick(), KeyboardWithLights(),
                                         MouseWithAFeatureReport(), SystemControl(),
                                         VendorReceiver(), VendorReportsOfAHeadset(),
                                         VendorReportsOfAMouse()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace simulator::hid
