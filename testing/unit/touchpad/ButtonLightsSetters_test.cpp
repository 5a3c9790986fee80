// The setters of the buttons' flags: their results, log lines and reports.
#include <thread>

#include "testing/kit/native/InputTest.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;
using vela::CTandrelHID;

struct Setter {
    const char* name;
    bool (CTandrelHID::*set)(std::uint32_t, bool);
    const char* textBeforeId;
    const char* textBeforeFlag;
    bool force;

    std::string Text(const std::string& buttonId, bool flag) const {
        return std::string("INFO ") + name + ": " + textBeforeId + buttonId + textBeforeFlag +
               (flag ? "1)" : "0)");
    }
};

void PrintTo(const Setter& setter, std::ostream* stream) { *stream << setter.name; }

const Setter kSetters[] = {
    {"EnableButton", &CTandrelHID::EnableButton, "EnableButton button(", "), enable(", false},
    {"EnableButtonBreathing", &CTandrelHID::EnableButtonBreathing, "EnableButtonBreathing button(",
     "), enable(", false},
    {"SetButtonVisible", &CTandrelHID::SetButtonVisible, "SetButtonVisible for BUTTON_ID ", " (",
     false},
    {"SetButtonLight", &CTandrelHID::SetButtonLight, "SetButtonLight for BUTTON_ID ", " (", false},
    {"SetButtonBreathing", &CTandrelHID::SetButtonBreathing, "SetButtonBreathing for BUTTON_ID ",
     " (", true},
};

class EachSetter : public InputTest, public testing::WithParamInterface<Setter> {
 protected:
    bool Set(std::uint32_t buttonId, bool value) {
        return (session_.*GetParam().set)(buttonId, value);
    }
};

TEST_P(EachSetter, IsRefusedSilentlyWithoutASession) {
    Plug();
    EXPECT_FALSE(Set(0, true));
    EXPECT_FALSE(Set(0, false));
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_P(EachSetter, IsRefusedAfterTheSession) {
    OpenAndLight();
    session_.Uninitialize();
    machine_.ForgetCalls();
    EXPECT_FALSE(Set(0, true));
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
}

TEST_P(EachSetter, LogsTheButtonAndTheFlag) {
    Open();
    for (const std::uint32_t button : {0U, 1U, 2U, 3U, 9U, 0xFFFFFFFFU}) {
        EXPECT_TRUE(Set(button, true));
    }
    EXPECT_TRUE(Set(0, false));
    const Setter& setter = GetParam();
    EXPECT_THAT(LogOf(setter.name),
                ElementsAre(setter.Text("0", true), setter.Text("1", true), setter.Text("2", true),
                            setter.Text("3", true), setter.Text("9", true), setter.Text("-1", true),
                            setter.Text("0", false)));
}

TEST_P(EachSetter, WritesAnUnchangedReportOnlyWhenForced) {
    OpenAndLight();
    EXPECT_TRUE(Set(9, false));
    if (GetParam().force) {
        EXPECT_THAT(Written(), ElementsAre(AllLit()));
    } else {
        EXPECT_THAT(Written(), IsEmpty());
    }
}

TEST_P(EachSetter, ComposesAReportOnTheCallersThread) {
    OpenAndLight();
    EXPECT_TRUE(Set(9, false));
    std::vector<std::thread::id> threads;
    for (const simulator::Call& call : machine_.Calls()) {
        if (call.function == "HidP_SetUsageValue") threads.push_back(call.thread);
    }
    EXPECT_THAT(threads, testing::SizeIs(6));
    EXPECT_THAT(threads, testing::Each(std::this_thread::get_id()));
}

TEST_P(EachSetter, KeepsTheFlagWhileTheTouchpadIsDisabledAndQueuesNothing) {
    OpenAndLight();
    ReceiveFirmwareState(kit::kFwSwipeOff);
    machine_.ForgetCalls();
    EXPECT_TRUE(Set(9, false));
    EXPECT_EQ(machine_.CountCalls("HidP_SetUsageValue"), 0U);
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(LogOf("Update"), ElementsAre(CannotUpdate(true, false)));
}

TEST_P(EachSetter, IsSilentAboutATouchpadThatIsGone) {
    OpenAndLight(DetachableLayout());
    machine_.FailAlways("HidD_GetPreparsedData", Fault::Error(1167));
    EXPECT_TRUE(Set(9, false));
    EXPECT_EQ(machine_.CountCalls("HidP_SetUsageValue"), 0U);
    machine_.StopFailing("HidD_GetPreparsedData");
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(LogOf("Update"), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Setters, EachSetter, testing::ValuesIn(kSetters));

TEST_P(EachSetter, LogsItselfBeforeTheUpdateThatItAsksFor) {
    OpenAndLight();
    ReceiveFirmwareState(kit::kFwSwipeOff);
    Set(9, false);
    const std::vector<std::string> lines = log_.Texts();
    ASSERT_THAT(lines, testing::SizeIs(testing::Ge(2U)));
    EXPECT_EQ(lines[lines.size() - 2], GetParam().Text("9", false));
    EXPECT_EQ(lines.back(), CannotUpdate(true, false));
}

}  // namespace
