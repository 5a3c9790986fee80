// Named mutexes of other processes.
#include "testing/simulator/Machine.h"
#include "testing/simulator/MachineState.h"

namespace simulator {

void Machine::HoldMutexElsewhere(const std::wstring& name, bool denied) {
    const MachineLock lock;
    std::shared_ptr<KernelObject> object = FindNamed(name);
    if (object == nullptr) object = std::make_shared<MutexObject>();
    State().names[name] = object;
    State().foreignMutexes[name] = {object, denied};
}

void Machine::ReleaseMutexElsewhere(const std::wstring& name) {
    const MachineLock lock;
    State().foreignMutexes.erase(name);
}

bool Machine::MutexExists(const std::wstring& name) const {
    const MachineLock lock;
    return std::dynamic_pointer_cast<MutexObject>(FindNamed(name)) != nullptr;
}

}  // namespace simulator
