#include "testing/simulator/MachineState.h"

#include "testing/simulator/CallRecorder.h"

namespace simulator {

MachineState& State() {
    static MachineState& state = *new MachineState;
    return state;
}

std::shared_ptr<KernelObject> FindNamed(const std::wstring& name) {
    const auto found = State().names.find(name);
    return found != State().names.end() ? found->second.lock() : nullptr;
}

std::shared_ptr<FileObject> FindFile(HANDLE handle, const char* function) {
    if (State().handles.IsClosed(handle)) {
        State().misuse.push_back(std::string(function) + "(" + HandleName(handle) +
                                 "): closed already");
    }
    return State().handles.Find<FileObject>(handle);
}

}  // namespace simulator
