#include "testing/fuzz/FuzzSessions.h"

#include <map>

#include "include/VelaAgent.h"
#include "interface/Singletons.h"
#include "testing/fuzz/FuzzDevice.h"

namespace {

vela::CTandrelHID* current = nullptr;

}  // namespace

// The linker takes these definitions and leaves out those of the agent, which is a static library.
namespace vela {

CTandrelHID& TouchpadSession() { return *current; }

CHapticTouchpadHID& HapticTouchpadSession() {
    static CHapticTouchpadHID session;
    return session;
}

}  // namespace vela

namespace fuzz {

void UseSessionFor(const std::wstring& productString) {
    // Sessions are never destroyed: on a detachable touchpad the heartbeat's thread object stays
    // joinable.
    static auto& sessions = *new std::map<std::wstring, vela::CTandrelHID*>;
    vela::CTandrelHID*& session = sessions[productString];
    if (session != nullptr) {
        current = session;
        return;
    }
    session = new vela::CTandrelHID;
    current = session;
    virtual_touchpad::TouchpadLayout layout;
    layout.productString = productString;
    EmptyMachine().Plug(Describe(layout));
    Init();
    IsDetachable();
    UnInit();
}

}  // namespace fuzz
