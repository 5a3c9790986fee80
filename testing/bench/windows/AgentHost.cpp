#include <stdexcept>

#include "testing/bench/Stopwatch.h"
#include "testing/bench/windows/Host.h"

namespace bench {
namespace {

std::atomic<double> seen{0};

void OnPress(std::uint32_t, std::uint32_t) { seen = Nanoseconds(); }

}  // namespace

AgentHost::AgentHost(const kit::AgentDll& agent) : agent_(agent) {
    if (agent_.Init() != VELA_INIT_OPEN) throw std::runtime_error("the session does not open");
    agent_.SetVelaButtonPressCallback(OnPress);
    agent_.EnableFeature(1);
    agent_.Activate(VELA_ACTIVE);
    for (std::uint32_t button = 0; button < 4; ++button) {
        agent_.EnableSingleButton(button, 1);
        agent_.SetButtonVisible(button, 1);
    }
    Sleep(50);  // until these reports are written
    Forget();
}

AgentHost::~AgentHost() { agent_.UnInit(); }

double AgentHost::PressSeen() const { return seen; }

void AgentHost::Forget() { seen = 0; }

}  // namespace bench
