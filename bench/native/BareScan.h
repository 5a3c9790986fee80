// The platform calls of a scan, with nothing kept of their answers.
#pragma once

namespace bench {

void BareScan();

}  // namespace bench
