// Recording the capabilities of a descriptor, rebuilding a descriptor of them, and recording again.
#include "testing/recording/RebuiltDescriptor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testing/parity/Descriptors.h"
#include "testing/parity/PreparsedData.h"
#include "tools/recording/CapabilityRecording.h"

namespace {

using recording::CallRecord;
using recording::Differences;
using recording::Json;
using recording::RebuildDescriptor;
using recording::RebuiltDescriptor;
using recording::RecordCapabilities;
using testing::ElementsAre;
using testing::IsEmpty;

Json Recorded(const recording::Bytes& descriptor) {
    CallRecord calls;
    return RecordCapabilities(parity::Parse(descriptor).get(), calls);
}

class EveryDescriptorTest : public testing::TestWithParam<parity::Descriptor> {};

INSTANTIATE_TEST_SUITE_P(, EveryDescriptorTest, testing::ValuesIn(parity::AllDescriptors()),
                         [](const auto& test) { return test.param.name; });

TEST_P(EveryDescriptorTest, IsRebuilt) {
    const Json recorded = Recorded(GetParam().bytes);
    const RebuiltDescriptor rebuilt = RebuildDescriptor(recorded);
    // HID.DLL sets no value of more than 32 bits.
    const std::size_t unplaced = GetParam().name == "FieldsOfUnusualWidths" ? 1 : 0;
    EXPECT_EQ(rebuilt.notes.size(), unplaced) << testing::PrintToString(rebuilt.notes);
    EXPECT_THAT(Differences(recorded, rebuilt.bytes), IsEmpty());
}

}  // namespace
