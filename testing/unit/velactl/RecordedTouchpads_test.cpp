// The recordings of the virtual touchpads, which native tests replay, are those of this build: each
// touchpad is recorded again and holds its meeting again. The program record_touchpads renews them.
#include <fstream>

#include "testing/unit/velactl/RecordedMeeting.h"
#include "testing/unit/velactl/VelactlTest.h"

namespace velactl_test {
namespace {

using virtual_touchpad::KnownLayout;
using OrderedJson = nlohmann::ordered_json;

class RecordedTouchpadsTest : public VelactlTest, public testing::WithParamInterface<KnownLayout> {
 protected:
    static OrderedJson Committed() {
        const std::filesystem::path folder = VELA_RECORDED_MACHINES;
        return OrderedJson::parse(std::ifstream(folder / ("Wine8" + GetParam().name + ".json")),
                                  nullptr, false);
    }
    // Returns the touchpad without what differs from run to run.
    static OrderedJson TouchpadOf(const OrderedJson& machine) {
        for (OrderedJson collection : machine["collections"]) {
            if (collection["chosen"] != true) continue;
            collection.erase("calls");
            collection.erase("path");
            collection.erase("preparsedData");
            return collection;
        }
        return nullptr;
    }
};

INSTANTIATE_TEST_SUITE_P(, RecordedTouchpadsTest,
                         testing::ValuesIn(virtual_touchpad::KnownLayouts()),
                         [](const auto& test) { return test.param.name; });

TEST_P(RecordedTouchpadsTest, AreRecordedTheSameAgain) {
    const OrderedJson committed = Committed();
    ASSERT_FALSE(committed.is_discarded());
    const OrderedJson machine = RecordWithMeeting(GetParam().layout);
    EXPECT_EQ(TouchpadOf(machine), TouchpadOf(committed));
    EXPECT_EQ(machine["expected"]["meeting"], committed["expected"]["meeting"]);
}

}  // namespace
}  // namespace velactl_test
