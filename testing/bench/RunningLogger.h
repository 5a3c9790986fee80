// The agent's logger, writing to a folder of its own while this lives.
#pragma once

#include "log/ILog.h"
#include "testing/kit/LogFolder.h"

namespace bench {

class RunningLogger {
 public:
    RunningLogger() { vela::GetLogger()->Initialize(folder_.ForAgent()); }
    ~RunningLogger() { vela::GetLogger()->UnInitialize(); }
    RunningLogger(const RunningLogger&) = delete;
    RunningLogger& operator=(const RunningLogger&) = delete;

 private:
    LogFolder folder_;
};

}  // namespace bench
