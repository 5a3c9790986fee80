#include "touchpad/OverlappedOperations.h"

#include <algorithm>
#include <utility>

#include "platform/Lock.h"

namespace vela {

OverlappedOperations::~OverlappedOperations() {
    FreeEnded();
    const Lock lock(mutex_);
    for (std::unique_ptr<OverlappedOperation>& operation : givenUp_) {
        static_cast<void>(operation.release());
    }
}

OverlappedOperations::Pointer OverlappedOperations::Make(std::vector<BYTE> bytes) {
    return Pointer(new OverlappedOperation(std::move(bytes)), Return{this});
}

void OverlappedOperations::FreeEnded() {
    const Lock lock(mutex_);
    givenUp_.erase(std::remove_if(givenUp_.begin(), givenUp_.end(),
                                  [](const std::unique_ptr<OverlappedOperation>& operation) {
                                      return !operation->IsWithKernel();
                                  }),
                   givenUp_.end());
}

void OverlappedOperations::TakeBack(OverlappedOperation* operation) {
    std::unique_ptr<OverlappedOperation> owned(operation);
    FreeEnded();
    if (!owned->IsWithKernel()) return;
    const Lock lock(mutex_);
    givenUp_.push_back(std::move(owned));
}

}  // namespace vela
