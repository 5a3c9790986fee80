// Whether the process is ending: its other threads are gone then, and a lock that one of them held
// stays locked.
#pragma once

namespace vela {

// Any thread.
bool IsProcessEnding();

// The entry point's, when the platform detaches the library because the process ends. The C++
// runtime, MinGW's and the compiler vendor's alike, calls the entry point first and destroys the
// library's static objects afterwards, so what their destructors do comes behind this.
void MarkProcessEnding();

}  // namespace vela
