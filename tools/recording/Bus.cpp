#include "tools/recording/Bus.h"

#include <regex>

namespace recording {

// The hardware id in the path is made by the driver of the bus: of a USB device's ids, of the GUID
// of a Bluetooth device's service, or of a name in the firmware's tables, which have I2C devices.
std::string BusOf(const std::string& path) {
    struct Form {
        const char* pattern;
        const char* bus;
    };
    constexpr Form kForms[] = {
        {R"(hid#\{00001124-)", "Bluetooth"},
        {R"(hid#\{00001812-)", "Bluetooth LE"},
        {R"(hid#vid_[0-9a-f]{4}&pid_[0-9a-f]{4})", "USB"},
        {R"(hid#(ven_[0-9a-z]{4}&dev_[0-9a-f]{4}|[a-z]{3,4}[0-9a-f]{4})[&#])", "I2C"},
    };
    for (const Form& form : kForms) {
        if (std::regex_search(path, std::regex(form.pattern, std::regex::icase))) return form.bus;
    }
    return "unknown";
}

}  // namespace recording
