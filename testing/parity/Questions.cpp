#include "testing/parity/Questions.h"

#include "testing/parity/Reports.h"

namespace parity {

Transcript Ask(const Descriptor& descriptor) {
    RecordedCalls calls(Parse(descriptor.bytes));
    bool hasFailed = false;  // once is enough: no field matters
    for (const Reports& reports : AskForLists(calls)) {
        if (reports.length == 0) continue;
        AskForButtons(calls, reports);
        AskForValues(calls, reports);
        if (!hasFailed) AskForFailures(calls, reports);
        hasFailed = true;
    }
    return calls.Notes();
}

}  // namespace parity
