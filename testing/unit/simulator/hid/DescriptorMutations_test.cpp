// Devices send descriptors, so parsing any bytes must end soon: with an error, or with a collection
// whose calls stay within their buffers.
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ExampleDescriptors.h"
#include "testing/unit/simulator/hid/ParsedDevice.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace simulator::hid {
namespace {

class DescriptorMutations : public testing::Test {
 protected:
    Bytes Mutate(Bytes bytes) {
        const std::size_t changes = 1 + Below(3);
        for (std::size_t i = 0; i < changes && !bytes.empty(); ++i) Change(bytes);
        return bytes;
    }

    // Makes every call on every report type and checks only buffers and bounds, not results.
    void Exercise(const Bytes& descriptor) {
        const auto collections = ParseReportDescriptor(descriptor);
        EXPECT_LE(collections.size(), descriptor.size());
        for (std::size_t i = 0; i < std::min<std::size_t>(collections.size(), 3); ++i) {
            const ParsedDevice device(descriptor, i);
            for (const HIDP_REPORT_TYPE type : {HidP_Input, HidP_Output, HidP_Feature}) {
                Exercise(device, type, descriptor.size());
            }
        }
    }

    std::size_t Below(std::size_t bound) { return random_() % bound; }

 private:
    void Change(Bytes& bytes) {
        const std::size_t at = Below(bytes.size());
        const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        const auto byte = static_cast<std::uint8_t>(random_());
        switch (Below(16)) {
            case 0:
                bytes.resize(at);
                break;
            case 1:
                bytes.insert(place, byte);
                break;
            case 2:
                bytes.erase(place);
                break;
            case 3:
            case 4: {
                const auto length = std::min<std::size_t>(bytes.size() - at, 1 + Below(16));
                const Bytes piece(place, place + static_cast<std::ptrdiff_t>(length));
                const auto target = static_cast<std::ptrdiff_t>(Below(bytes.size()));
                bytes.insert(bytes.begin() + target, piece.begin(), piece.end());
                break;
            }
            case 5:
            case 6:
            case 7:
            case 8:
                *place = byte;
                break;
            default:
                *place = static_cast<std::uint8_t>(*place ^ (1u << Below(8)));
        }
    }

    void Exercise(const ParsedDevice& device, HIDP_REPORT_TYPE type, std::size_t size) {
        const auto values = device.ValueCaps(type);
        const auto buttons = device.ButtonCaps(type);
        EXPECT_LE(values.size() + buttons.size(), size);
        const ULONG room = device.MaxUsages(type);
        EXPECT_LE(room, 0xFFFFu);
        Bytes report = device.EmptyReport(type);
        if (report.empty()) return;
        std::generate(report.begin() + 1, report.end(),
                      [&] { return static_cast<std::uint8_t>(random_()); });
        for (std::size_t i = 0; i < std::min<std::size_t>(buttons.size(), 8); ++i) {
            const HIDP_BUTTON_CAPS& caps = buttons[i];
            const USAGE usage = caps.IsRange ? caps.Range.UsageMax : caps.NotRange.Usage;
            const USHORT link = caps.LinkCollection;
            report[0] = caps.ReportID;
            EXPECT_GE(device.Get(type, report, caps.UsagePage, link, room).status, 0);
            device.Unset(type, {usage}, report, caps.UsagePage, link);
            device.Set(type, {usage}, report, caps.UsagePage, link);
        }
        for (std::size_t i = 0; i < std::min<std::size_t>(values.size(), 8); ++i) {
            const HIDP_VALUE_CAPS& caps = values[i];
            const USAGE usage = caps.IsRange ? caps.Range.UsageMax : caps.NotRange.Usage;
            report[0] = 0;
            const NTSTATUS status =
                device.SetValue(type, usage, ~0u, report, caps.UsagePage, caps.LinkCollection);
            const ULONG value =
                device.Value(type, usage, report, caps.UsagePage, caps.LinkCollection);
            const USHORT bits = FirstField(values, caps, usage).BitSize;
            EXPECT_EQ(status, bits <= 32 ? HIDP_STATUS_SUCCESS : HIDP_STATUS_BUFFER_TOO_SMALL);
            EXPECT_EQ(value != 0, bits != 0);
        }
    }

    // Returns the field that a call on the usage in this link collection finds.
    static HIDP_VALUE_CAPS FirstField(const std::vector<HIDP_VALUE_CAPS>& values,
                                      const HIDP_VALUE_CAPS& wanted, USAGE usage) {
        return *std::find_if(values.begin(), values.end(), [&](const HIDP_VALUE_CAPS& caps) {
            const USAGE first = caps.Range.UsageMin;
            const USAGE last = caps.IsRange ? caps.Range.UsageMax : first;
            const USHORT link = wanted.LinkCollection;
            return caps.UsagePage == wanted.UsagePage && first <= usage && usage <= last &&
                   (link == 0 || link == caps.LinkCollection);
        });
    }

    std::mt19937 random_{20240229};
};

TEST_F(DescriptorMutations, NeitherCrashNorHangNorOutgrowTheirBounds) {
    virtual_touchpad::TouchpadLayout slots;
    slots.activeUsagesAsArray = true;
    const Bytes seeds[] = {PrecisionTouchpad(), Keyboard(),
                           virtual_touchpad::BuildReportDescriptor({}),
                           virtual_touchpad::BuildReportDescriptor(slots)};
    int refused = 0;
    constexpr int kRounds = 20000;
    for (int round = 0; round < kRounds; ++round) {
        const Bytes mutated = Mutate(seeds[Below(std::size(seeds))]);
        try {
            Exercise(mutated);
        } catch (const DescriptorError&) {
            ++refused;
        }
        if (HasFailure()) FAIL() << "in round " << round;
    }
    // Both outcomes must occur often, otherwise the mutations test little.
    EXPECT_GT(refused, kRounds / 10);
    EXPECT_LT(refused, kRounds * 9 / 10);
}

}  // namespace
}  // namespace simulator::hid
