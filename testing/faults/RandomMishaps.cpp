#include "testing/faults/RandomSteps.h"
#include "testing/faults/Stage.h"

namespace faults {
namespace {

using simulator::Machine;

simulator::Device& TouchpadOf(Stage& stage, bool haptic) {
    return haptic ? stage.HapticTouchpad() : stage.Touchpad();
}

template <typename Deed>
Step ToTouchpad(const char* name, Deed deed) {
    return {NameOf(name), [deed](Stage& stage) {
                deed(stage.Touchpad());
                return 0;
            }};
}

Step PullPlug(Dice& dice) {
    const bool haptic = dice.Below(4) == 0;
    return {NameOf("unplug", {haptic}), [haptic](Stage& stage) {
                TouchpadOf(stage, haptic).Unplug();
                return 0;
            }};
}

Step PutPlugBack(Dice& dice) {
    const bool haptic = dice.Below(4) == 0;
    return {NameOf("plug in", {haptic}), [haptic](Stage& stage) {
                TouchpadOf(stage, haptic).PlugIn();
                return 0;
            }};
}

Step TakeAway(Dice& dice) {
    const bool take = dice.Bool() != 0;
    return {NameOf("held by another process", {take}), [take](Stage& stage) {
                if (take) stage.Touchpad().HoldElsewhere();
                if (!take) stage.Touchpad().ReleaseElsewhere();
                return 0;
            }};
}

Step MarkElsewhere(Dice& dice) {
    const bool denied = dice.Bool() != 0;
    return {NameOf("marked as open by another process", {denied}), [denied](Stage&) {
                Machine::Get().HoldMutexElsewhere(L"Global\\VelaDeviceMutex", denied);
                return 0;
            }};
}

Step HoldWrites(Dice&) {
    return ToTouchpad("hold writes", [](simulator::Device& touchpad) {
        Machine::Get().ExpireTimedWaits(true);
        touchpad.SetWriteBehaviour(simulator::WriteBehaviour::Hold);
    });
}

Step EndHeldWrites(Dice& dice) {
    const std::uint32_t error = dice.OneOf({0, 0, 31, 995});
    return ToTouchpad("end held writes", [error](simulator::Device& touchpad) {
        touchpad.SetWriteBehaviour(simulator::WriteBehaviour::Pend);
        touchpad.CompleteHeldWrites(error);
    });
}

Step FailReads(Dice& dice) {
    const std::uint32_t error = dice.OneOf({31, 121, 995});
    return ToTouchpad("fail reads",
                      [error](simulator::Device& touchpad) { touchpad.FailPendingReads(error); });
}

const Choice kMishaps[] = {
    {3, PullPlug},   {5, PutPlugBack},   {2, TakeAway},  {1, MarkElsewhere},
    {1, HoldWrites}, {2, EndHeldWrites}, {2, FailReads},
};

}  // namespace

Step DrawMishap(Dice& dice) { return Draw(kMishaps, dice); }

}  // namespace faults
