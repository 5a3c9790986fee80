#include "log/LineTime.h"

namespace vela {

const char* LineTime::Now() {
    const __time64_t now = _time64(nullptr);
    if (now != second_) {
        std::tm localTime{};
        _localtime64_s(&localTime, &now);
        std::strftime(text_, sizeof(text_), "%Y-%m-%d %H:%M:%S", &localTime);
        second_ = now;
    }
    return text_;
}

}  // namespace vela
