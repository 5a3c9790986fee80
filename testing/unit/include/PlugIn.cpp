// A plug-in with static objects of VelaAgent.hpp, which a host loads and frees.
#include "include/VelaAgent.hpp"

#include <optional>

#include "testing/unit/include/PlugIn.h"

namespace {

std::optional<vela_agent::Logger> logger;
std::optional<vela_agent::Session> session;
std::optional<vela_agent::Haptics> haptics;

}  // namespace

void StartLog(const wchar_t* dll, const wchar_t* directory) {
    logger.emplace(vela_agent::Library(dll), directory);
}

void OpenTouchpad(const wchar_t* dll) {
    session.emplace(vela_agent::Library(dll));
    session->EnableFeature(true);
    session->Activate(VELA_ACTIVE);
}

void OpenHaptics(const wchar_t* dll) { haptics.emplace(vela_agent::Library(dll)); }

void CloseAll() {
    haptics.reset();
    session.reset();
    logger.reset();
}
