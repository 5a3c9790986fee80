#include "testing/faults/RandomSteps.h"
#include "testing/faults/ScriptFixture.h"

namespace faults {
namespace {

using simulator::Machine;

simulator::Device& TouchpadOf(ScriptFixture& fixture, bool haptic) {
    return haptic ? fixture.HapticTouchpad() : fixture.Touchpad();
}

template <typename Action>
Step ToTouchpad(const char* name, Action action) {
    return {NameOf(name), [action](ScriptFixture& fixture) {
                action(fixture.Touchpad());
                return 0;
            }};
}

Step PullPlug(RandomSource& random) {
    const bool haptic = random.Below(4) == 0;
    return {NameOf("unplug", {haptic}), [haptic](ScriptFixture& fixture) {
                TouchpadOf(fixture, haptic).Unplug();
                return 0;
            }};
}

Step PutPlugBack(RandomSource& random) {
    const bool haptic = random.Below(4) == 0;
    return {NameOf("plug in", {haptic}), [haptic](ScriptFixture& fixture) {
                TouchpadOf(fixture, haptic).PlugIn();
                return 0;
            }};
}

Step TakeAway(RandomSource& random) {
    const bool take = random.Bool() != 0;
    return {NameOf("held by another process", {take}), [take](ScriptFixture& fixture) {
                if (take) fixture.Touchpad().HoldElsewhere();
                if (!take) fixture.Touchpad().ReleaseElsewhere();
                return 0;
            }};
}

Step MarkElsewhere(RandomSource& random) {
    const bool denied = random.Bool() != 0;
    return {NameOf("marked as open by another process", {denied}), [denied](ScriptFixture&) {
                Machine::Get().HoldMutexElsewhere(L"Global\\VelaDeviceMutex", denied);
                return 0;
            }};
}

Step HoldWrites(RandomSource&) {
    return ToTouchpad("hold writes", [](simulator::Device& touchpad) {
        Machine::Get().ExpireTimedWaits(true);
        touchpad.SetWriteBehaviour(simulator::WriteBehaviour::Hold);
    });
}

Step EndHeldWrites(RandomSource& random) {
    const std::uint32_t error = random.OneOf({0, 0, 31, 995});
    return ToTouchpad("end held writes", [error](simulator::Device& touchpad) {
        touchpad.SetWriteBehaviour(simulator::WriteBehaviour::Pend);
        touchpad.CompleteHeldWrites(error);
    });
}

Step FailReads(RandomSource& random) {
    const std::uint32_t error = random.OneOf({31, 121, 995});
    return ToTouchpad("fail reads",
                      [error](simulator::Device& touchpad) { touchpad.FailPendingReads(error); });
}

const Choice kMishaps[] = {
    {3, PullPlug},   {5, PutPlugBack},   {2, TakeAway},  {1, MarkElsewhere},
    {1, HoldWrites}, {2, EndHeldWrites}, {2, FailReads},
};

}  // namespace

Step DrawMishap(RandomSource& random) { return Draw(kMishaps, random); }

}  // namespace faults
