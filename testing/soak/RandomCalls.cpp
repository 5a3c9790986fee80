#include "testing/soak/RandomCalls.h"

#include <atomic>
#include <iterator>
#include <mutex>
#include <shared_mutex>

namespace soak {
namespace {

// A host does not open or close the haptic session while another thread sets or gets its intensity.
// MinGW initialises such a lock at its first use, and fails when several threads do so at once: the
// constructor uses it before there are threads.
struct HapticMutex : std::shared_mutex {
    HapticMutex() {
        lock();
        unlock();
    }
};
HapticMutex hapticMutex;
std::atomic<std::int64_t> hapticScans{0};

std::uint32_t AnyButton(Random& random) { return Below(random, 6); }
VELA_BOOL AnyFlag(Random& random) { return static_cast<VELA_BOOL>(Below(random, 2)); }

// Returns one of the defined activations, or an undefined one.
std::uint32_t AnyActivation(Random& random) {
    constexpr std::uint32_t kValues[] = {
        VELA_ACTIVE,      VELA_ACTIVE,    VELA_ACTIVE_HOST_SETS_LIGHTS,
        VELA_DEACTIVATED, VELA_SUSPENDED, 9};
    return kValues[Below(random, std::size(kValues))];
}

using Call = void (*)(const Agent& agent, Random& random);

constexpr Call kCalls[] = {
    [](const Agent& agent, Random& random) { agent.EnableFeature(Below(random, 4) != 0); },
    [](const Agent& agent, Random&) { agent.IsFeatureEnabled(); },
    [](const Agent& agent, Random& random) { agent.Activate(AnyActivation(random)); },
    [](const Agent& agent, Random&) { agent.IsActivated(); },
    [](const Agent& agent, Random& random) {
        agent.EnableSingleButton(AnyButton(random), AnyFlag(random));
    },
    [](const Agent& agent, Random& random) { agent.IsSingleButtonEnabled(AnyButton(random)); },
    [](const Agent& agent, Random& random) {
        agent.SetButtonVisible(AnyButton(random), AnyFlag(random));
    },
    [](const Agent& agent, Random& random) {
        agent.SetButtonLight(AnyButton(random), AnyFlag(random));
    },
    [](const Agent& agent, Random& random) { agent.EnableChatBreathing(AnyFlag(random)); },
    [](const Agent& agent, Random&) { agent.IsChatBreathingEnabled(); },
    [](const Agent& agent, Random& random) {
        agent.SetButtonBreathing(AnyButton(random), AnyFlag(random));
    },
    [](const Agent& agent, Random& random) {
        agent.SetVelaBrightness(Below(random, kBrighterThanStorms));
    },
    [](const Agent& agent, Random&) { agent.GetVelaBrightness(); },
    [](const Agent& agent, Random& random) {
        agent.SetClickMode(Below(random, 3), static_cast<std::uint16_t>(Below(random, 1000)));
    },
    [](const Agent& agent, Random&) { agent.GetClickMode(); },
    [](const Agent& agent, Random&) { agent.UpdateVelaState(); },
    [](const Agent& agent, Random&) { agent.IsDetachable(); },
    [](const Agent& agent, Random&) { agent.IsSupportBiDirectionSwipe(); },
    [](const Agent& agent, Random& random) {
        const std::shared_lock<std::shared_mutex> lock(hapticMutex);
        agent.SetHapticTPIntensityLevel(Below(random, 101));
    },
    [](const Agent& agent, Random&) {
        const std::shared_lock<std::shared_mutex> lock(hapticMutex);
        agent.GetHapticTPIntensityLevel();
    },
    [](const Agent& agent, Random& random) {
        if (Below(random, 16) != 0) return;
        const std::unique_lock<std::shared_mutex> lock(hapticMutex);
        if (AnyFlag(random) != 0) {
            agent.IsHapticTPPresent();
            agent.InitHapticTP();
            hapticScans += 2;
        } else {
            agent.UnInitHapticTP();
        }
    },
};

}  // namespace

void MakeRandomCall(const Agent& agent, Random& random) {
    kCalls[Below(random, std::size(kCalls))](agent, random);
}

std::int64_t HapticScans() { return hapticScans; }

}  // namespace soak
