// The folder for the log of a fuzzer's host, one for the whole process.
#pragma once

#include "testing/kit/LogFolder.h"

namespace fuzz {

inline const kit::LogFolder& HostLog() {
    static const kit::LogFolder folder;
    return folder;
}

}  // namespace fuzz
