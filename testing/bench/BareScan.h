// The platform calls of a scan, with nothing kept of their answers.
#pragma once

#include <string>

namespace bench {

// Returns the touchpad's path; empty when there is none.
std::wstring BareScan();

}  // namespace bench
