// Whether the process is ending: its other threads are gone then, and a lock that one of them held
// stays locked.
#pragma once

namespace vela {

// Any thread may call it.
bool IsProcessEnding();

// The entry point calls it when the platform detaches the library because the process ends. The C++
// runtime, MinGW's and the compiler vendor's alike, calls the entry point before it destroys the
// library's static objects, so their destructors run after this.
void MarkProcessEnding();

}  // namespace vela
