// The report that leaves a touchpad dark when its session is closed.
//
// It goes to the touchpad past the queue, so a report that was queued before can still be written
// behind it, and the heartbeat's as well: then it is written once more.
#pragma once

#include <utility>
#include <vector>

#include "touchpad/ReportWriter.h"

namespace vela {

class LastWords {
 public:
    LastWords(ReportWriter& writer, OpenTouchpad& touchpad, std::vector<BYTE> report)
        : writer_(writer), touchpad_(touchpad), report_(std::move(report)) {}

    // While the session's threads run; on the calling thread. Suppressed, like any report, when it
    // is the last one again.
    void Write();
    // When the writer was stopped and joined. Writes nothing when no other report was issued behind
    // Write, nor to a touchpad that has let a write run into its time limit meanwhile: closing
    // would wait as long again.
    void RepeatIfOvertaken();

 private:
    bool IsOvertaken();

    ReportWriter& writer_;
    OpenTouchpad& touchpad_;
    const std::vector<BYTE> report_;
    bool written_ = false;  // what Write came to
};

}  // namespace vela
