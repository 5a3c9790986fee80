// The touchpad's own events: SYNC, GESTURE, enabled, disabled.
#include <optional>
#include <tuple>

#include "testing/kit/native/InputTest.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

// The session's two flags, in terms of the firmware state that sets them.
constexpr std::uint8_t kClear = 0;
constexpr std::uint8_t kTemporary = kit::kFwSwipeOff;
constexpr std::uint8_t kTablet = kit::kFwTouchpadDisable;
constexpr std::uint8_t kBoth = kTemporary | kTablet;

std::string CannotUpdate(std::uint8_t flags) {
    return kit::CannotUpdate((flags & kTemporary) != 0, (flags & kTablet) != 0);
}

struct Event {
    std::uint16_t usage;
    std::uint8_t reportId;
    std::uint8_t before;
    std::uint8_t after;
    std::optional<std::uint32_t> status;  // reported in an active state
    std::size_t written = 0;              // light reports
    std::size_t heldBack = 0;             // light reports that must not be written
    bool stopsBreathing = false;
};

std::vector<Event> InBothLayouts(std::vector<Event> events) {
    const std::size_t count = events.size();
    for (std::size_t i = 0; i < count; ++i) {
        events.push_back(events[i]);
        events.back().reportId = 0x10;
    }
    return events;
}

const char* NameOf(std::uint16_t usage) {
    switch (usage) {
        case kSync:
            return "SYNC";
        case kGesture:
            return "GESTURE";
        case kEnabled:
            return "enabled";
        default:
            return "disabled";
    }
}

void PrintTo(const Event& event, std::ostream* stream) {
    *stream << NameOf(event.usage) << " in report " << int{event.reportId} << ", flags "
            << int{event.before};
}

class EachEvent : public InputTest,
                  public testing::WithParamInterface<std::tuple<Event, std::uint32_t>> {
 protected:
    const Event& ItsEvent() const { return std::get<0>(GetParam()); }
    std::uint32_t Activation() const { return std::get<1>(GetParam()); }
    bool Active() const { return Activation() <= 1; }
};

TEST_P(EachEvent, ChangesTheFlagsNotifiesTheHostAndUpdatesTheLights) {
    const Event& event = ItsEvent();
    OpenAndLight(BothLayouts(), Activation());
    ReceiveFirmwareState(event.before);
    Receive(InputReport({event.usage}, 0, event.reportId));

    // Outside the active states the gesture has no effect.
    const std::uint8_t after = event.usage == kGesture && !Active() ? event.before : event.after;
    std::vector<std::string> calls;
    if (Active() && event.status) calls.push_back("status " + std::to_string(*event.status));
    EXPECT_EQ(HostCallbacks::Calls(), calls);
    if (!calls.empty()) {
        EXPECT_NE(HostCallbacks::LastThread(), std::this_thread::get_id());
    }
    EXPECT_EQ(Written(), std::vector<Bytes>(event.written, Active() ? AllLit() : BlankReport()));

    TryUpdate();
    EXPECT_THAT(Written(), IsEmpty());
    std::vector<std::string> updates(event.heldBack, CannotUpdate(after));
    if (after != kClear) updates.push_back(CannotUpdate(after));
    EXPECT_EQ(LogOf("Update"), updates);

    EXPECT_THAT(LogOf("HandleInputReport"),
                ElementsAre(testing::HasSubstr("Vela FW state: "),
                            std::string("INFO HandleInputReport: Handle HID output report for ") +
                                NameOf(event.usage)));
    const std::vector<std::string> stops(
        event.stopsBreathing ? 1 : 0,
        "INFO SetButtonBreathing: SetButtonBreathing for BUTTON_ID 2 (0)");
    EXPECT_EQ(LogOf("SetButtonBreathing"), stops);
}

const auto kActivations = testing::Values(0U, 1U, 2U, 4U, 5U, 0x100U);

INSTANTIATE_TEST_SUITE_P(Sync, EachEvent,
                         testing::Combine(testing::ValuesIn(InBothLayouts({
                                              {kSync, 1, kClear, kClear, 0, 2, 0, true},
                                              {kSync, 1, kTemporary, kClear, 0, 2, 0, true},
                                              {kSync, 1, kTablet, kTablet, std::nullopt},
                                              {kSync, 1, kBoth, kBoth, std::nullopt},
                                          })),
                                          kActivations));

INSTANTIATE_TEST_SUITE_P(Gesture, EachEvent,
                         testing::Combine(testing::ValuesIn(InBothLayouts({
                                              {kGesture, 1, kClear, kTemporary, 2},
                                              {kGesture, 1, kTemporary, kTemporary, 2},
                                              {kGesture, 1, kTablet, kBoth, 2},
                                              {kGesture, 1, kBoth, kBoth, 2},
                                          })),
                                          kActivations));

// The second update of an enabled event is unforced; its unchanged report is dropped.
INSTANTIATE_TEST_SUITE_P(
    Enabled, EachEvent,
    testing::Combine(testing::Values(Event{kEnabled, 1, kClear, kClear, 0, 1, 0, true},
                                     Event{kEnabled, 1, kTemporary, kTemporary, 2, 0, 2, true},
                                     Event{kEnabled, 1, kTablet, kClear, 0, 1, 0, true},
                                     Event{kEnabled, 1, kBoth, kTemporary, 2, 0, 2, true},
                                     Event{kEnabled, 0x10, kClear, kClear, 0, 1, 0, true},
                                     Event{kEnabled, 0x10, kTemporary, kClear, 0, 1, 0, true},
                                     Event{kEnabled, 0x10, kTablet, kClear, 0, 1, 0, true},
                                     Event{kEnabled, 0x10, kBoth, kClear, 0, 1, 0, true}),
                     kActivations));

INSTANTIATE_TEST_SUITE_P(Disabled, EachEvent,
                         testing::Combine(testing::ValuesIn(InBothLayouts({
                                              {kDisabled, 1, kClear, kTablet, 3},
                                              {kDisabled, 1, kTemporary, kBoth, 3},
                                              {kDisabled, 1, kTablet, kTablet, 3},
                                              {kDisabled, 1, kBoth, kBoth, 3},
                                          })),
                                          kActivations));

// --- without a host ------------------------------------------------------------------------------

class EventWithoutCallback : public InputTest, public testing::WithParamInterface<Event> {};

TEST_P(EventWithoutCallback, ChangesTheFlagsAllTheSame) {
    OpenAndLight(BothLayouts());
    session_.SetStatusChangeCallback(nullptr);
    ReceiveFirmwareState(GetParam().before);
    Receive(InputReport({GetParam().usage}, 0, GetParam().reportId));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_EQ(Written(), std::vector<Bytes>(GetParam().written, AllLit()));
    TryUpdate();
    std::vector<std::string> updates;
    if (GetParam().after != kClear) updates.push_back(CannotUpdate(GetParam().after));
    EXPECT_EQ(LogOf("Update"), updates);
}

INSTANTIATE_TEST_SUITE_P(Events, EventWithoutCallback,
                         testing::Values(Event{kSync, 1, kTemporary, kClear, 0, 2},
                                         Event{kGesture, 1, kClear, kTemporary, 2},
                                         Event{kEnabled, 1, kTablet, kClear, 0, 1},
                                         Event{kEnabled, 0x10, kBoth, kClear, 0, 1},
                                         Event{kDisabled, 1, kClear, kTablet, 3}));

}  // namespace
