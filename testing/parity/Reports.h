// What the questions need to know of a collection's reports of one type, as the platform lists it.
#pragma once

#include <set>

#include "testing/parity/RecordedCalls.h"

namespace parity {

// No descriptor here declares these.
constexpr USAGE kAbsentUsage = 0x7ABC;
constexpr USAGE kAbsentPage = 0xFFEE;
constexpr UCHAR kAbsentReportId = 0xEE;

struct Field {
    Place place;  // the collection that it is declared in
    USAGE first;
    USAGE last;
    UCHAR reportId;
    // Values only.
    ULONG logicalMinimum = 0;
    ULONG logicalMaximum = 0;

    // The whole top-level collection.
    Place Anywhere() const { return {place.type, place.page, 0}; }
};

struct Reports {
    HIDP_REPORT_TYPE type;
    std::size_t length;  // 0: there are none
    USHORT links;
    std::vector<Field> buttons;
    std::vector<Field> values;
    std::set<UCHAR> ids;

    // The first and the last, for what is the same for those in between.
    static std::vector<Field> Outermost(const std::vector<Field>& fields);

    Bytes Filled(UCHAR reportId, std::uint8_t fill) const {
        Bytes report(length, fill);
        report[0] = reportId;
        return report;
    }
    // Ends with a 3, a 2 and a 1.
    Bytes CountingDown(UCHAR reportId) const {
        Bytes report(length);
        for (std::size_t i = 0; i < length; ++i) {
            report[i] = static_cast<std::uint8_t>(length - i);
        }
        report[0] = reportId;
        return report;
    }
    // Every byte another one.
    Bytes Patterned(UCHAR reportId) const {
        Bytes report(length);
        for (std::size_t i = 0; i < length; ++i) {
            report[i] = static_cast<std::uint8_t>(0x5A + 0x3B * i);
        }
        report[0] = reportId;
        return report;
    }

    // Where the field is not: another link collection, and one and a page that there are not.
    std::vector<Place> PlacesWithout(const Field& field) const;
    // Ids of the other reports, and one that there is not.
    std::set<UCHAR> IdsWithout(const Field& field) const;
};

// Notes the calls that list the collection, with every sort of length and report type.
std::vector<Reports> AskForLists(RecordedCalls& calls);

// About a collection that has reports of the type:
void AskForButtons(RecordedCalls& calls, const Reports& reports);
void AskForValues(RecordedCalls& calls, const Reports& reports);
// Calls that fail before they come to a field of the report.
void AskForFailures(RecordedCalls& calls, const Reports& reports);

}  // namespace parity
