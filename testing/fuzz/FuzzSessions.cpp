#include "testing/fuzz/FuzzSessions.h"

#include <map>

#include "include/VelaAgent.h"
#include "interface/Singletons.h"
#include "testing/fuzz/FuzzDevice.h"

namespace {

vela::CTandrelHID* current = nullptr;

}  // namespace

// The agent's own pair lies in a library, which is asked only for what the program does not have.
namespace vela {

CTandrelHID& TouchpadSession() { return *current; }

CHapticTouchpadHID& HapticTouchpadSession() {
    static CHapticTouchpadHID session;
    return session;
}

}  // namespace vela

namespace fuzz {

void UseSessionFor(const std::wstring& productString) {
    // Never destroyed: the heartbeat of a session with a detachable touchpad is never joined.
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
