// The report that leaves a touchpad dark when its session is closed.
//
// It bypasses the queue, so a report that was queued earlier, or the heartbeat's, may still be
// written after it: then it is written once more.
#pragma once

#include <utility>
#include <vector>

#include "touchpad/ReportWriter.h"

namespace vela {

class LastWords {
 public:
    LastWords(ReportWriter& writer, OpenTouchpad& touchpad, std::vector<BYTE> report)
        : writer_(writer), touchpad_(touchpad), report_(std::move(report)) {}

    // Writes the report on the calling thread, while the session's threads still run. Like any
    // report it is dropped when it equals the last one.
    void Write();
    // Writes the report again when another one was issued after Write. Called when the writer is
    // stopped and joined. Skipped when a write has run into its time limit meanwhile, as closing
    // would wait as long again.
    void RepeatIfOvertaken();

 private:
    bool IsOvertaken();

    ReportWriter& writer_;
    OpenTouchpad& touchpad_;
    const std::vector<BYTE> report_;
    bool written_ = false;  // the result of Write
};

}  // namespace vela
