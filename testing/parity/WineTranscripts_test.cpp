// Compares Wine's HID.DLL and hidparse.sys with the simulator, except for the known differences.
#include <map>

#include <windows.h>

#include "testing/parity/DescriptorTest.h"
#include "testing/parity/ExpectedTranscripts.h"
#include "testing/parity/KnownDifferences.h"
#include "testing/parity/RecordTranscript.h"

namespace parity {
namespace {

// Windows itself does not let programs load hidparse.sys, and requires no comparison.
bool IsWine() {
    const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll != nullptr && GetProcAddress(ntdll, "wine_get_version") != nullptr;
}

std::vector<Difference> DifferencesOf(const Descriptor& descriptor) {
    return Compare(descriptor.name, ExpectedTranscript(descriptor.name),
                   RecordTranscript(descriptor));
}

class WineTranscript : public DescriptorTest {};

TEST_P(WineTranscript, IsTheSimulators) {
    if (!IsWine()) GTEST_SKIP() << "not on Wine";
    constexpr int kShown = 10;
    ASSERT_FALSE(ExpectedTranscript(GetParam().name).empty()) << "there is none to compare with";
    int unknown = 0;
    for (const Difference& difference : DifferencesOf(GetParam())) {
        if (FindKnown(difference) != nullptr || ++unknown > kShown) continue;
        ADD_FAILURE() << "another " << difference.result << "\n  simulator "
                      << ToText(difference.simulator) << "\n  Wine      "
                      << ToText(difference.wine);
    }
    EXPECT_EQ(unknown, 0);
}

INSTANTIATE_TEST_SUITE_P(Of, WineTranscript, testing::ValuesIn(AllDescriptors()), NameOf);

TEST(KnownDifferencesFromWine, AllOccurWhereTheyAreSaidTo) {
    if (!IsWine()) GTEST_SKIP() << "not on Wine";
    std::map<std::string, std::set<std::string>> occurring;  // name to descriptors
    for (const Descriptor& descriptor : AllDescriptors()) {
        for (const Difference& difference : DifferencesOf(descriptor)) {
            const KnownDifference* known = FindKnown(difference);
            if (known != nullptr) occurring[known->name].insert(descriptor.name);
        }
    }
    for (const KnownDifference& known : KnownDifferences()) {
        EXPECT_FALSE(occurring[known.name].empty()) << known.name << ": " << known.why;
        if (known.descriptors.empty()) continue;
        EXPECT_EQ(occurring[known.name], known.descriptors) << known.name;
    }
}

}  // namespace
}  // namespace parity
