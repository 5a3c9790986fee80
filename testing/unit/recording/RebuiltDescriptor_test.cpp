// Recording the capabilities of a descriptor, rebuilding a descriptor of them, and recording again.
#include "testing/recording/RebuiltDescriptor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "testing/parity/Descriptors.h"
#include "testing/simulator/hid/ReportDescriptor.h"
#include "testing/unit/simulator/hid/recorded/RecordedCollections.h"
#include "tools/recording/CapabilityRecording.h"

namespace {

using recording::Bytes;
using recording::CallRecord;
using recording::Differences;
using recording::Json;
using recording::RebuildDescriptor;
using recording::RebuiltDescriptor;
using testing::IsEmpty;

struct Collection {
    std::string name;
    std::shared_ptr<const simulator::hid::Collection> parsed;
};

void PrintTo(const Collection& collection, std::ostream* out) { *out << collection.name; }

void AddCollections(const std::string& name, const Bytes& descriptor,
                    std::vector<Collection>& all) {
    const auto parsed = simulator::hid::ParseReportDescriptor(descriptor);
    for (std::size_t i = 0; i < parsed.size(); ++i) {
        all.push_back({parsed.size() == 1 ? name : name + std::to_string(i + 1), parsed[i]});
    }
}

// Each rule of the HID standard, layouts of many devices, and real devices' whole descriptors.
std::vector<Collection> EveryCollection() {
    std::vector<Collection> all;
    for (const parity::Descriptor& descriptor : parity::AllDescriptors()) {
        AddCollections(descriptor.name, descriptor.bytes, all);
    }
    using namespace simulator::hid;
    for (const RecordedCollection& device :
         {GameController(), Joystick(), KeyboardWithLights(), MouseWithAFeatureReport(),
          SystemControl(), VendorReceiver(), VendorReportsOfAHeadset(), VendorReportsOfAMouse()}) {
        AddCollections("Real" + device.name, device.descriptor, all);
    }
    return all;
}

// HID.DLL sets no value of more than 32 bits; and where an array's only usage has index 0, setting
// it changes nothing.
std::size_t UnplacedItems(const std::string& name) {
    static const std::map<std::string, std::size_t> unplaced{{"FieldsOfUnusualWidths", 1},
                                                             {"RealVendorReceiver", 2},
                                                             {"RealVendorReportsOfAMouse3", 2},
                                                             {"RealVendorReportsOfAMouse4", 2}};
    const auto found = unplaced.find(name);
    return found == unplaced.end() ? 0 : found->second;
}

class EveryCollectionTest : public testing::TestWithParam<Collection> {};

INSTANTIATE_TEST_SUITE_P(, EveryCollectionTest, testing::ValuesIn(EveryCollection()),
                         [](const auto& test) { return test.param.name; });

TEST_P(EveryCollectionTest, IsRebuilt) {
    const auto preparsed = simulator::hid::AllocatePreparsedData(GetParam().parsed);
    CallRecord calls;
    const Json recorded = recording::RecordCapabilities(preparsed, calls);
    simulator::hid::FreePreparsedData(preparsed);
    const RebuiltDescriptor rebuilt = RebuildDescriptor(recorded);
    EXPECT_EQ(rebuilt.notes.size(), UnplacedItems(GetParam().name))
        << testing::PrintToString(rebuilt.notes);
    EXPECT_THAT(Differences(recorded, rebuilt.bytes), IsEmpty());
}

}  // namespace
