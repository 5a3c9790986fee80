// Makes the platform calls of a scan, and discards their results.
#pragma once

#include <string>

namespace bench {

// Returns the touchpad's path; empty when there is none.
std::wstring BareScan();

}  // namespace bench
