#include "testing/simulator/HandleTable.h"

#include <iterator>
#include <utility>

#include "testing/simulator/CallRecorder.h"

namespace simulator {
namespace {

// Values are multiples of four, as the platform's are. From the low end: two bits of zero, three
// of the kind, the number, the count of restarts.
constexpr int kKindShift = 2;
constexpr int kNumberShift = 5;
constexpr int kRestartShift = 40;
constexpr std::uint64_t kKindMask = 0x7;
constexpr std::uint64_t kNumberMask = (std::uint64_t{1} << (kRestartShift - kNumberShift)) - 1;

constexpr const char* kKindNames[] = {"file", "event", "mutex", "devices", "thread"};

std::uint64_t ValueOf(HANDLE handle) { return reinterpret_cast<std::uintptr_t>(handle); }

std::uint64_t RestartOf(HANDLE handle) { return ValueOf(handle) >> kRestartShift; }

std::uint64_t KindOf(HANDLE handle) { return (ValueOf(handle) >> kKindShift) & kKindMask; }

}  // namespace

HANDLE HandleTable::Add(HandleKind kind, std::shared_ptr<KernelObject> object) {
    const std::uint64_t value = restarts_ << kRestartShift | ++created_ << kNumberShift |
                                static_cast<std::uint64_t>(kind) << kKindShift;
    auto* const handle = reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(value));
    objects_.emplace(handle, std::move(object));
    return handle;
}

bool HandleTable::Close(HANDLE handle) {
    const auto found = objects_.find(handle);
    if (found == objects_.end()) return false;
    const std::shared_ptr<KernelObject> object = std::move(found->second);
    objects_.erase(found);
    object->HandleClosed();
    return true;
}

bool HandleTable::IsClosed(HANDLE handle) const {
    const std::uint64_t restart = RestartOf(handle);
    return restart != 0 && restart <= restarts_ && objects_.find(handle) == objects_.end();
}

void HandleTable::Restart() {
    ++restarts_;
    created_ = 0;
}

std::vector<std::string> HandleTable::OpenNames() const {
    std::vector<std::string> names;
    for (const auto& [handle, object] : objects_) {
        if (RestartOf(handle) == restarts_) names.push_back(HandleName(handle));
    }
    return names;
}

void HandleTable::ReconsiderWaits() const {
    for (const auto& [handle, object] : objects_) {
        if (Signal* signal = object->Waitable()) signal->ReconsiderWaits();
    }
}

bool IsOfKind(HANDLE handle, HandleKind kind) {
    return KindOf(handle) == static_cast<std::uint64_t>(kind);
}

std::string HandleName(HANDLE handle) {
    if (handle == nullptr) return "null";
    if (handle == INVALID_HANDLE_VALUE) return "invalid";
    // No handle of this table has such a value.
    if (RestartOf(handle) == 0) return Hex(ValueOf(handle));
    const std::uint64_t number = (ValueOf(handle) >> kNumberShift) & kNumberMask;
    return std::string(kKindNames[KindOf(handle)]) + "#" + Count(number);
}

}  // namespace simulator
