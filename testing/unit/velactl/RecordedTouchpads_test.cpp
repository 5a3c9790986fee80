// The recordings of the virtual touchpads, which native tests replay, are those of this build: each
// touchpad is recorded again and holds its meeting again. The program record_touchpads renews them.
#include <fstream>

#include "testing/unit/velactl/RecordedMeeting.h"
#include "testing/unit/velactl/VelactlTest.h"

namespace velactl_test {
namespace {

using virtual_touchpad::KnownLayout;
using OrderedJson = nlohmann::ordered_json;

OrderedJson Committed(const std::string& name) {
    const std::filesystem::path folder = VELA_RECORDED_MACHINES;
    return OrderedJson::parse(std::ifstream(folder / ("Wine8" + name + ".json")), nullptr, false);
}

// Returns the touchpad without what differs from run to run.
OrderedJson TouchpadOf(const OrderedJson& machine) {
    for (OrderedJson collection : machine["collections"]) {
        if (collection["chosen"] != true) continue;
        for (const char* const name : {"calls", "path", "preparsedData"}) collection.erase(name);
        return collection;
    }
    return nullptr;
}

class RecordedTouchpadsTest : public VelactlTest,
                              public testing::WithParamInterface<KnownLayout> {};

INSTANTIATE_TEST_SUITE_P(, RecordedTouchpadsTest,
                         testing::ValuesIn(virtual_touchpad::KnownLayouts()),
                         [](const auto& test) { return test.param.name; });

TEST_P(RecordedTouchpadsTest, AreRecordedTheSameAgain) {
    const OrderedJson committed = Committed(GetParam().name);
    ASSERT_FALSE(committed.is_discarded());
    const OrderedJson machine = RecordWithMeeting(GetParam().layout);
    EXPECT_EQ(TouchpadOf(machine), TouchpadOf(committed));
    EXPECT_EQ(machine["expected"]["meeting"], committed["expected"]["meeting"]);
}

struct Haptic {
    const char* name;
    bool hasIntensity;
};

class RecordedHapticTouchpadsTest : public VelactlTest,
                                    public testing::WithParamInterface<Haptic> {};

INSTANTIATE_TEST_SUITE_P(, RecordedHapticTouchpadsTest,
                         testing::Values(Haptic{"Haptic", true},
                                         Haptic{"HapticWithoutIntensity", false}),
                         [](const auto& test) { return test.param.name; });

TEST_P(RecordedHapticTouchpadsTest, AreRecordedTheSameAgain) {
    const OrderedJson committed = Committed(GetParam().name);
    ASSERT_FALSE(committed.is_discarded());
    HapticLayout layout;
    layout.hasIntensity = GetParam().hasIntensity;
    const OrderedJson machine = RecordWithLevel(layout);
    EXPECT_EQ(TouchpadOf(machine), TouchpadOf(committed));
    EXPECT_EQ(machine["expected"]["hapticLevel"], committed["expected"]["hapticLevel"]);
}

}  // namespace
}  // namespace velactl_test
