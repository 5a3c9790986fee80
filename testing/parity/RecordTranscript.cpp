#include "testing/parity/RecordTranscript.h"

#include "testing/parity/Reports.h"

namespace parity {

Transcript RecordTranscript(const Descriptor& descriptor) {
    RecordedCalls calls(Parse(descriptor.bytes));
    bool failuresRecorded = false;  // once suffices: the failures do not depend on a field
    for (const Reports& reports : RecordLists(calls)) {
        if (reports.length == 0) continue;
        RecordButtonCalls(calls, reports);
        RecordValueCalls(calls, reports);
        if (!failuresRecorded) RecordFailures(calls, reports);
        failuresRecorded = true;
    }
    return calls.Notes();
}

}  // namespace parity
