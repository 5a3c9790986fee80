#include "testing/unit/watch/WatchTest.h"

#include <algorithm>
#include <map>

namespace watch_tests {
namespace {

constexpr const wchar_t* kLibrary = L"/host/VelaAgent.dll";

}  // namespace

WatchTest::WatchTest() {
    machine_.Reset();
    std::map<std::string, void*> functions;
#define VELA_TEST_ADD(name) functions[#name] = reinterpret_cast<void*>(name);
    VELA_AGENT_FOR_EACH_EXPORT(VELA_TEST_ADD)
#undef VELA_TEST_ADD
    machine_.PutLibrary(kLibrary, functions);
}

std::shared_ptr<simulator::Device> WatchTest::Plug(const kit::TouchpadLayout& layout) {
    return machine_.Plug(kit::Describe(layout));
}

Watch& WatchTest::Start() {
    const vela_agent::Library library(kLibrary);
    return watch_.emplace(
        library,
        WatchHandlers{[this](VelaButton button, bool newLight) {
                          Record("press " + std::to_string(button) + (newLight ? " 1" : " 0"));
                      },
                      [this](std::uint32_t status) { Record("status " + std::to_string(status)); },
                      [this] { Record("found"); }, [this] { Record("lost"); },
                      [this] { Record("held"); }});
}

void WatchTest::LightAll(Settings& settings) {
    settings.activation = VELA_ACTIVE;
    settings.feature = true;
    for (vela_agent::ButtonSettings& button : settings.buttons) button = {true, true, false};
}

Bytes WatchTest::LastLights(const simulator::Device& device) {
    const std::vector<Bytes> outputs = device.Outputs();
    const auto last = std::find_if(outputs.rbegin(), outputs.rend(), [](const Bytes& report) {
        return report[0] == virtual_touchpad::kLightReportId;
    });
    return last == outputs.rend() ? Bytes() : *last;
}

bool WatchTest::WaitForLights(const simulator::Device& device, const Bytes& report) {
    return kit::WaitUntil([&] { return LastLights(device) == report; });
}

bool WatchTest::WaitForEvents(const std::vector<std::string>& events) {
    return kit::WaitUntil([&] { return Events() == events; });
}

bool WatchTest::WaitForEvent(const std::string& event) {
    return kit::WaitUntil([&] {
        const std::vector<std::string> events = Events();
        return std::find(events.begin(), events.end(), event) != events.end();
    });
}

std::vector<std::string> WatchTest::Events() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return events_;
}

void WatchTest::Record(const std::string& event) {
    const std::lock_guard<std::mutex> lock(mutex_);
    events_.push_back(event);
}

}  // namespace watch_tests
