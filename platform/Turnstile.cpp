#include "platform/Turnstile.h"

#include <mutex>

namespace vela {

std::uint64_t Turnstile::DrawNumber() {
    const std::lock_guard<SlimMutex> lock(mutex_);
    return nextNumber_++;
}

void Turnstile::Await(std::uint64_t number) {
    const std::lock_guard<SlimMutex> lock(mutex_);
    passed_.wait(mutex_, [&] { return servedNumber_ == number; });
}

void Turnstile::Pass(std::uint64_t number) {
    const std::lock_guard<SlimMutex> lock(mutex_);
    passed_.wait(mutex_, [&] { return servedNumber_ == number; });
    ++servedNumber_;
    passed_.notify_all();
}

}  // namespace vela
