// Runs sequences of export calls, presses, firmware states and pulled plugs. After every step the
// results, the host's callbacks and the touchpad's reports match the model.
#include "testing/fuzz/CallFixture.h"
#include "testing/fuzz/FuzzInput.h"

namespace {

using fuzz::CallFixture;
using fuzz::CallStep;
using fuzz::FuzzInput;
using virtual_touchpad::TouchpadLayout;

constexpr int kMaximumSteps = 64;

// The first bytes choose the touchpad.
TouchpadLayout TakeLayout(FuzzInput& input) {
    using virtual_touchpad::kButtonReportId;
    using virtual_touchpad::kSecondLayoutReportId;
    const std::wstring names[] = {L"Vela Virtual Touchpad", L"Vela DETACHABLE Touchpad",
                                  L"A morlo's touchpad", L""};
    const std::vector<std::uint8_t> inputs[] = {{kButtonReportId},
                                                {kSecondLayoutReportId},
                                                {kButtonReportId, kSecondLayoutReportId},
                                                {kSecondLayoutReportId, kButtonReportId}};
    const std::set<std::uint16_t> missing[] = {{}, {0x20}, {0x21}, {0x24}, {0x27}, {0xA2}};
    TouchpadLayout layout;
    layout.productString = input.OneOf(names);
    layout.inputReportIds = input.OneOf(inputs);
    layout.missingLightUsages = input.OneOf(missing);
    const unsigned details = input.Byte();
    layout.activeUsagesAsArray = (details & 1U) != 0;
    layout.hasFeatureReport = (details & 2U) == 0;
    layout.hasRequest = (details & 4U) == 0;
    if ((details & 8U) != 0) layout.requestReportId = kSecondLayoutReportId;
    layout.versionNumber = (details & 16U) == 0 ? 99 : 98;
    return layout;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    CallFixture fixture(TakeLayout(input));
    for (int count = 0; count < kMaximumSteps && !input.IsEmpty(); ++count) {
        const CallStep step = TakeStep(input);
        step.run(fixture, input);
        fixture.CompareAll(step.name);
    }
    return 0;
}
