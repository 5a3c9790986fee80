// A scan sends no request to any device; a session sends them to its own touchpad only.
#include <algorithm>
#include <map>
#include <set>

#include "testing/kit/native/ExportsTest.h"

namespace {

using namespace kit;
using testing::Contains;
using testing::Each;
using testing::Pair;
using testing::StartsWith;

using Functions = std::set<std::string>;

// The system answers these from what it knows of a device.
const Functions kOfAScan{"HidD_GetPreparsedData", "HidD_GetAttributes", "CloseHandle"};

class ScanRequestsTest : public ExportsTest {
 protected:
    ScanRequestsTest() {
        TouchpadLayout layout;
        layout.vendorId = 0x1A2B;
        machine_.Plug(Describe(layout));
        layout = {};
        layout.usagePage = 0xFF81;
        machine_.Plug(Describe(layout));
    }
    ~ScanRequestsTest() override { UnInitHapticTP(); }

    // Returns the functions that were called on each handle of a device.
    std::map<std::string, Functions> FunctionsByHandle() const {
        std::map<std::string, Functions> functions;
        for (const simulator::Call& call : machine_.Calls()) {
            const std::string handle = call.arguments.substr(0, call.arguments.find(','));
            if (handle.rfind("file#", 0) == 0) functions[handle].insert(call.function);
        }
        return functions;
    }
};

TEST_F(ScanRequestsTest, WithoutATouchpadOnlyWhatTheSystemKnowsIsRead) {
    EXPECT_EQ(IsVelaPresent(), 0);
    EXPECT_EQ(Init(), VELA_INIT_NOT_FOUND);
    EXPECT_EQ(IsHapticTPPresent(), 0);
    EXPECT_EQ(InitHapticTP(), 0);
    EXPECT_EQ(FunctionsByHandle().size(), 4U * 2U);
    EXPECT_THAT(FunctionsByHandle(), Each(Pair(StartsWith("file#"), kOfAScan)));
}

TEST_F(ScanRequestsTest, OfTheTouchpadsTooOnlyThatIsRead) {
    Plug();
    machine_.Plug(Describe(HapticLayout{}));
    EXPECT_EQ(IsVelaPresent(), 1);
    EXPECT_EQ(IsHapticTPPresent(), 1);
    EXPECT_EQ(FunctionsByHandle().size(), 3U + 4U);
    EXPECT_THAT(FunctionsByHandle(), Each(Pair(StartsWith("file#"), kOfAScan)));
}

TEST_F(ScanRequestsTest, ASessionSendsRequestsToItsTouchpadOnly) {
    Plug();
    ASSERT_EQ(Init(), VELA_INIT_OPEN);
    EXPECT_EQ(SetClickMode(1, 300), 1);
    EXPECT_EQ(IsVelaPresent(), 1);
    const std::vector<std::string> open = machine_.OpenHandles();
    const auto own = std::find_if(open.begin(), open.end(), [](const std::string& handle) {
        return handle.rfind("file#", 0) == 0;
    });
    ASSERT_NE(own, open.end());
    std::map<std::string, Functions> functions = FunctionsByHandle();
    EXPECT_THAT(functions[*own], Contains("HidD_GetProductString"));
    functions.erase(*own);
    EXPECT_EQ(functions.size(), 3U);
    EXPECT_THAT(functions, Each(Pair(StartsWith("file#"), kOfAScan)));
}

}  // namespace
