// The objects that handles refer to. They are reference counted: a pending operation keeps the
// event that it will signal, even if no handle to it is left.
#pragma once

#include <windows.h>

#include "testing/simulator/Signal.h"

namespace simulator {

class KernelObject {
 public:
    KernelObject() = default;
    virtual ~KernelObject() = default;
    KernelObject(const KernelObject&) = delete;
    KernelObject& operator=(const KernelObject&) = delete;

    // Null for an object that cannot be waited on here.
    virtual Signal* Waitable() { return nullptr; }
    virtual void HandleClosed() {}
};

class EventObject : public KernelObject {
 public:
    EventObject(Signal::Reset reset, bool set) : signal_(reset, set) {}

    Signal* Waitable() override { return &signal_; }

 private:
    Signal signal_;
};

// A mutex is a name that exists; owning it is not modelled.
class MutexObject : public KernelObject {};

}  // namespace simulator
