#include "testing/simulator/hid/PreparsedData.h"

#include <cstdint>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace simulator::hid {
namespace {

// The pointers are not addresses, and none is used twice: a use after free is always detected, even
// after new preparsed data was allocated.
class Registry {
 public:
    PHIDP_PREPARSED_DATA Add(std::shared_ptr<const Collection> collection) {
        const std::lock_guard lock(mutex_);
        next_ += kStep;
        auto* const preparsed = reinterpret_cast<PHIDP_PREPARSED_DATA>(next_);
        inUse_.emplace(preparsed, std::move(collection));
        return preparsed;
    }

    bool Remove(PHIDP_PREPARSED_DATA preparsed) {
        const std::lock_guard lock(mutex_);
        return inUse_.erase(preparsed) != 0;
    }

    std::shared_ptr<const Collection> Find(PHIDP_PREPARSED_DATA preparsed) {
        const std::lock_guard lock(mutex_);
        const auto found = inUse_.find(preparsed);
        return found != inUse_.end() ? found->second : nullptr;
    }

    std::size_t Size() {
        const std::lock_guard lock(mutex_);
        return inUse_.size();
    }

 private:
    static constexpr std::uintptr_t kStep = 16;

    std::mutex mutex_;  // guards: all below
    std::uintptr_t next_ = 0;
    std::unordered_map<PHIDP_PREPARSED_DATA, std::shared_ptr<const Collection>> inUse_;
};

// The registry is never destroyed: static objects of the agent may free their preparsed data after
// those of this file are gone.
Registry& ThisProcess() {
    static Registry& registry = *new Registry;
    return registry;
}

}  // namespace

PHIDP_PREPARSED_DATA AllocatePreparsedData(std::shared_ptr<const Collection> collection) {
    return ThisProcess().Add(std::move(collection));
}

bool FreePreparsedData(PHIDP_PREPARSED_DATA preparsed) { return ThisProcess().Remove(preparsed); }

std::size_t PreparsedDataInUse() { return ThisProcess().Size(); }

std::shared_ptr<const Collection> FindPreparsedData(PHIDP_PREPARSED_DATA preparsed) {
    return ThisProcess().Find(preparsed);
}

}  // namespace simulator::hid
