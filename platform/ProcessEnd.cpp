#include "platform/ProcessEnd.h"

#include <atomic>

namespace vela {
namespace {

std::atomic<bool> processEnding{false};

}  // namespace

bool IsProcessEnding() { return processEnding; }

void MarkProcessEnding() { processEnding = true; }

}  // namespace vela
