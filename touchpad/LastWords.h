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

    // Writes it on the calling thread, while the session's threads still run. Suppressed, like any
    // report, when it is the last one again.
    void Write();
    // Writes it again, the writer being stopped and joined, when another report was issued behind
    // Write; but not to a touchpad that has let a write run into its time limit meanwhile, as
    // closing would wait as long again.
    void RepeatIfOvertaken();

 private:
    bool IsOvertaken();

    ReportWriter& writer_;
    OpenTouchpad& touchpad_;
    const std::vector<BYTE> report_;
    bool written_ = false;  // what Write came to
};

}  // namespace vela
