// Compares the checked-in transcripts with the simulator. The target renew_parity_transcripts
// rewrites them.
#include "testing/parity/DescriptorTest.h"
#include "testing/parity/ExpectedTranscripts.h"
#include "testing/parity/RecordTranscript.h"

namespace parity {
namespace {

class SimulatorTranscript : public DescriptorTest {};

TEST_P(SimulatorTranscript, IsTheOneThatIsCheckedIn) {
    const Transcript expected = ExpectedTranscript(GetParam().name);
    const Transcript actual = RecordTranscript(GetParam());
    ASSERT_FALSE(expected.empty()) << "there is none";
    for (std::size_t i = 0; i < (std::min)(expected.size(), actual.size()); ++i) {
        ASSERT_EQ(ToText(actual[i]), ToText(expected[i])) << "line " << i + 1;
    }
    EXPECT_EQ(actual.size(), expected.size());
}

INSTANTIATE_TEST_SUITE_P(Of, SimulatorTranscript, testing::ValuesIn(AllDescriptors()), NameOf);

TEST(SimulatorTranscripts, AreOfDescriptorsThatAreAskedAbout) {
    std::set<std::string> names;
    for (const Descriptor& descriptor : AllDescriptors()) names.insert(descriptor.name);
    EXPECT_EQ(names.size(), AllDescriptors().size()) << "two of one name";
    EXPECT_EQ(ExpectedTranscripts(), names);
}

}  // namespace
}  // namespace parity
