// Runs the agent's logger in a folder of its own for the lifetime of the object.
#pragma once

#include "log/ILog.h"
#include "testing/kit/LogFolder.h"

namespace bench {

class RunningLogger {
 public:
    RunningLogger() { vela::GetLogger()->Initialize(folder_.Path().wstring()); }
    ~RunningLogger() { vela::GetLogger()->UnInitialize(); }
    RunningLogger(const RunningLogger&) = delete;
    RunningLogger& operator=(const RunningLogger&) = delete;

 private:
    kit::LogFolder folder_;
};

}  // namespace bench
