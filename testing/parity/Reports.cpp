#include "testing/parity/Reports.h"

namespace parity {

std::vector<Field> Reports::Outermost(const std::vector<Field>& fields) {
    if (fields.size() <= 2) return fields;
    return {fields.front(), fields.back()};
}

std::vector<Place> Reports::PlacesWithout(const Field& field) const {
    std::vector<Place> places{{type, kAbsentPage, 0}, {type, field.place.page, links}};
    const auto otherLink = static_cast<USHORT>(field.place.link == 1 ? 2 : 1);
    if (otherLink < links) places.push_back({type, field.place.page, otherLink});
    return places;
}

std::set<UCHAR> Reports::IdsWithout(const Field& field) const {
    std::set<UCHAR> others = ids;
    others.insert(kAbsentReportId);
    others.erase(field.reportId);
    return others;
}

}  // namespace parity
