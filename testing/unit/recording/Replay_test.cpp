// What the replay of a recording tells when the simulated machine is another one.
#include "testing/recording/Replay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "testing/recording/Expectation.h"

namespace {

using recording::Json;
using recording::MeetingDifferences;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Json UsualMachine() {
    const auto folder = std::filesystem::path(VELA_SOURCE_FOLDER) / "testing/unit/recording";
    return Json::parse(std::ifstream(folder / "machines/Wine8Usual.json"));
}
Json& TouchpadOf(Json& machine) { return machine["collections"].back(); }

TEST(ReplayTest, FindsTheTouchpad) {
    Json machine = UsualMachine();
    EXPECT_EQ(recording::Replay(machine)["touchpad"], TouchpadOf(machine)["path"]);
}

TEST(ReplayTest, DoesNotFindATouchpadOfAVendorThatWasNotWanted) {
    Json machine = UsualMachine();
    machine["wantedVendors"] = {"0x1a2b"};
    const Json replay = recording::Replay(machine);
    EXPECT_TRUE(replay["touchpad"].is_null());
    EXPECT_TRUE(replay["meeting"].is_null());
    EXPECT_THAT(recording::Unexpected(machine), Contains(HasSubstr("new: the touchpad: recorded")));
}

TEST(ReplayTest, TellsTheFieldThatIsNotRebuilt) {
    Json machine = UsualMachine();
    TouchpadOf(machine)["capabilities"]["output"]["values"][0]["isAlias"] = true;
    EXPECT_THAT(recording::Replay(machine)["notRebuilt"],
                ElementsAre(HasSubstr("output/values/0/isAlias: recorded true, rebuilt false")));
}

TEST(ReplayTest, TellsTheBitsThatAreNotRecorded) {
    Json machine = UsualMachine();
    Json& button = TouchpadOf(machine)["capabilities"]["output"]["buttons"][0];
    button["reports"]["first"] = {{"status", "0xc0110004"}};
    EXPECT_THAT(recording::Replay(machine)["notRebuilt"],
                Contains(HasSubstr("button usage 0x0001 of report 2: no recorded report")));
}

TEST(ReplayTest, TellsTheReportWhoseLengthIsAGuess) {
    Json machine = UsualMachine();
    TouchpadOf(machine)["capabilities"]["output"]["length"] = 20;
    EXPECT_THAT(recording::Replay(machine)["notRebuilt"],
                Contains(HasSubstr("which report is 20 bytes long is a guess: report 3")));
}

TEST(ReplayTest, LeavesOutWhatCouldNotBeRead) {
    Json machine = UsualMachine();
    TouchpadOf(machine).erase("capabilities");
    const Json replay = recording::Replay(machine);
    EXPECT_TRUE(replay["touchpad"].is_null());
    EXPECT_THAT(replay["notRebuilt"], ElementsAre(HasSubstr("it could not be read")));
}

TEST(ReplayTest, RefusesAnotherFormat) {
    EXPECT_ANY_THROW(recording::Replay(Json::array()));
    EXPECT_ANY_THROW(recording::Replay({{"wantedVendors", Json::array()}}));
    Json machine = UsualMachine();
    TouchpadOf(machine)["capabilities"]["output"]["values"][0].erase("reportId");
    EXPECT_ANY_THROW(recording::Replay(machine));
}

TEST(ExpectationTest, IsTheMeetingOfTheSimulatedMachineWithoutAnother) {
    Json machine = UsualMachine();
    const Json onWine = machine["expected"]["meeting"];
    machine.erase("expected");
    EXPECT_THAT(recording::AddExpectation(machine), IsEmpty());
    EXPECT_THAT(MeetingDifferences(onWine, machine["expected"]["meeting"]), IsEmpty());
}

TEST(ExpectationTest, TellsAnExpectedDifferenceThatIsGone) {
    Json machine = UsualMachine();
    machine["expected"]["differences"].push_back("output 1: another report");
    EXPECT_THAT(recording::Unexpected(machine), ElementsAre("gone: output 1: another report"));
}

TEST(MeetingDifferencesTest, ARecordedReportMayLackZerosAtTheEnd) {
    EXPECT_THAT(MeetingDifferences({{"outputs", {"02 01"}}}, {{"outputs", {"02 01 00"}}}),
                IsEmpty());
    EXPECT_THAT(MeetingDifferences({{"outputs", {"02 01 00"}}}, {{"outputs", {"02 01"}}}),
                ElementsAre(HasSubstr("output 1: ")));
    EXPECT_THAT(MeetingDifferences({{"outputs", {"02 01"}}}, {{"outputs", {"02 01 01"}}}),
                ElementsAre("output 1: recorded \"02 01\", replayed \"02 01 01\""));
}

TEST(MeetingDifferencesTest, ReportsAndNotificationsThatAreMissingAreTold) {
    EXPECT_THAT(
        MeetingDifferences({{"outputs", {"02"}}, {"notifications", {"status 0"}}},
                           {{"outputs", {"02", "03"}}, {"notifications", Json::array()}}),
        ElementsAre(HasSubstr("notifications: "), "output 2: recorded null, replayed \"03\""));
    EXPECT_THAT(MeetingDifferences(nullptr, nullptr), IsEmpty());
    EXPECT_THAT(MeetingDifferences(nullptr, {{"init", 1}}), ElementsAre(HasSubstr("meeting: ")));
}

}  // namespace
