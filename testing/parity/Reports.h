// The reports of one type of a collection, as the platform lists them, and the calls on them.
#pragma once

#include <set>

#include "testing/parity/RecordedCalls.h"

namespace parity {

// No descriptor here declares these.
constexpr USAGE kAbsentUsage = 0x7ABC;
constexpr USAGE kAbsentPage = 0xFFEE;
constexpr UCHAR kAbsentReportId = 0xEE;

struct Field {
    Place place;  // with the link collection that declares it
    USAGE first;
    USAGE last;
    UCHAR reportId;
    // These are set for values only.
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

    // Returns the first and the last field, for calls that gain nothing from those in between.
    static std::vector<Field> Outermost(const std::vector<Field>& fields);

    Bytes Filled(UCHAR reportId, std::uint8_t fill) const {
        Bytes report(length, fill);
        report[0] = reportId;
        return report;
    }
    // Returns a report that ends with a 3, a 2 and a 1.
    Bytes CountingDown(UCHAR reportId) const {
        Bytes report(length);
        for (std::size_t i = 0; i < length; ++i) {
            report[i] = static_cast<std::uint8_t>(length - i);
        }
        report[0] = reportId;
        return report;
    }
    // Returns a report with a different value in each byte.
    Bytes Patterned(UCHAR reportId) const {
        Bytes report(length);
        for (std::size_t i = 0; i < length; ++i) {
            report[i] = static_cast<std::uint8_t>(0x5A + 0x3B * i);
        }
        report[0] = reportId;
        return report;
    }

    // Returns places without the field: another link collection, a link collection that does not
    // exist, and a usage page that does not exist.
    std::vector<Place> PlacesWithout(const Field& field) const;
    // Returns the ids of the other reports, and one that does not exist.
    std::set<UCHAR> IdsWithout(const Field& field) const;
};

// Records the calls that list the collection, with every sort of length and report type.
std::vector<Reports> RecordLists(RecordedCalls& calls);

// These require a collection with reports of the type.
void RecordButtonCalls(RecordedCalls& calls, const Reports& reports);
void RecordValueCalls(RecordedCalls& calls, const Reports& reports);
// Records calls that fail before they access a field of the report.
void RecordFailures(RecordedCalls& calls, const Reports& reports);

}  // namespace parity
