#include "simulator/MachineState.h"

namespace simulator {

MachineState& State() {
    static MachineState& state = *new MachineState;
    return state;
}

std::shared_ptr<KernelObject> FindNamed(const std::wstring& name) {
    const auto found = State().names.find(name);
    return found != State().names.end() ? found->second.lock() : nullptr;
}

}  // namespace simulator
