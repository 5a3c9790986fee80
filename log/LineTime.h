// The time of a log line.
#pragma once

#include <windows.h>

#include <ctime>

namespace vela {

// Lines come in bursts, so the text of a second is kept for the other lines of that second: making
// it anew takes as long as the rest of a line's composition. Used by the logger's writer thread
// alone.
class LineTime {
 public:
    // Returns the current local time, "2024-05-06 17:41:58". The text is valid until the next call.
    const char* Now();

 private:
    __time64_t second_ = -1;  // since 1970, UTC; -1 before the first line
    char text_[80] = {};      // of second_
};

}  // namespace vela
