#include <atomic>
#include <mutex>

#include "log/Logger.h"

namespace vela {
namespace {

// Both are constant-initialised, so they exist before any code of the library runs.
std::mutex creationMutex;
std::atomic<Logger*> theLogger{nullptr};

}  // namespace

ILog* GetLogger() {
    Logger* logger = theLogger.load(std::memory_order_acquire);
    if (logger == nullptr) {
        const std::lock_guard<std::mutex> lock(creationMutex);
        logger = theLogger.load(std::memory_order_relaxed);
        if (logger == nullptr) {
            logger = new Logger();
            theLogger.store(logger, std::memory_order_release);
        }
    }
    return logger;
}

}  // namespace vela
