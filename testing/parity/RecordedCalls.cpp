#include "testing/parity/RecordedCalls.h"

#include "testing/parity/CapsText.h"

namespace parity {
namespace {

std::string TypeName(HIDP_REPORT_TYPE type) {
    const char* const names[] = {"input", "output", "feature"};
    return type < kNoReportType ? names[type] : "no type";
}

std::string Text(const Place& place) {
    return TypeName(place.type) + ", " + Hex(place.page, 4) + ", link " +
           std::to_string(place.link);
}

std::string Text(const UsageList& usages) {
    std::string text;
    for (const USAGE usage : usages) text += (text.empty() ? "" : " ") + Hex(usage, 4);
    return "[" + text + "]";
}

std::string Text(const Bytes& report) {
    return report.empty() ? "no bytes" : "report " + HexBytes(report);
}

Entry::Result Status(NTSTATUS status) {
    return {"status", Hex(static_cast<std::uint32_t>(status), 8)};
}
Entry::Result Length(ULONG length) { return {"length", std::to_string(length)}; }

// The buffer of a call. It contains at least one byte even if its length is 0.
class Buffer {
 public:
    explicit Buffer(const Bytes& report) : bytes_(report), length_(bytes_.size()) {
        bytes_.push_back(0);
    }
    PCHAR Data() { return reinterpret_cast<PCHAR>(bytes_.data()); }
    ULONG Length() const { return static_cast<ULONG>(length_); }
    Bytes Content() const { return Bytes(bytes_.begin(), bytes_.end() - 1); }

 private:
    Bytes bytes_;
    std::size_t length_;
};

// Only changed reports are recorded.
Entry::Result Changed(const Buffer& buffer) { return {"report", HexBytes(buffer.Content())}; }

template <typename Caps, typename Function, typename Note>
std::vector<Caps> List(const std::string& name, Function function, HIDP_REPORT_TYPE type,
                       USHORT room, PHIDP_PREPARSED_DATA preparsed, Note note) {
    const std::string call = name + "(" + TypeName(type) + ", room " + std::to_string(room) + ")";
    std::vector<Caps> list(room + 1u);
    USHORT length = room;
    const NTSTATUS status = function(type, list.data(), &length, preparsed);
    note({call, {Status(status), Length(length)}});
    list.resize(status == HIDP_STATUS_SUCCESS ? length : 0);
    const bool isExact = list.size() == room;  // a longer list has the same records
    for (std::size_t i = 0; isExact && i < list.size(); ++i) {
        note({call + "[" + std::to_string(i) + "]", ResultsOf(list[i])});
    }
    return list;
}

template <typename Function>
Entry Change(const std::string& name, Function function, const Place& place, UsageList usages,
             PHIDP_PREPARSED_DATA preparsed, const Bytes& report) {
    Entry entry{name + "(" + Text(place) + ", " + Text(usages) + ", " + Text(report) + ")", {}};
    Buffer buffer(report);
    auto length = static_cast<ULONG>(usages.size());
    const NTSTATUS status = function(place.type, place.page, place.link, usages.data(), &length,
                                     preparsed, buffer.Data(), buffer.Length());
    entry.results = {Status(status)};
    if (length != usages.size()) entry.results.push_back(Length(length));
    if (buffer.Content() != report) entry.results.push_back(Changed(buffer));
    return entry;
}

}  // namespace

// The calls for different fields overlap; each is recorded once.
void RecordedCalls::Note(Entry entry) {
    if (noted_.insert(entry.call).second) notes_.push_back(std::move(entry));
}

HIDP_CAPS RecordedCalls::GetCaps() {
    HIDP_CAPS caps{};
    const NTSTATUS status = HidP_GetCaps(preparsed_.get(), &caps);
    Entry entry{"HidP_GetCaps()", ResultsOf(caps)};
    entry.results.insert(entry.results.begin(), Status(status));
    Note(std::move(entry));
    return caps;
}

void RecordedCalls::GetLinkCollectionNodes(ULONG room) {
    const std::string call = "HidP_GetLinkCollectionNodes(room " + std::to_string(room) + ")";
    std::vector<HIDP_LINK_COLLECTION_NODE> nodes(room + 1u);
    ULONG length = room;
    const NTSTATUS status = HidP_GetLinkCollectionNodes(nodes.data(), &length, preparsed_.get());
    Note({call, {Status(status), Length(length)}});
    const bool isExact = status == HIDP_STATUS_SUCCESS && length == room;
    for (ULONG i = 0; isExact && i < length; ++i) {
        Note({call + "[" + std::to_string(i) + "]", ResultsOf(nodes[i])});
    }
}

std::vector<HIDP_VALUE_CAPS> RecordedCalls::GetValueCaps(HIDP_REPORT_TYPE type, USHORT room) {
    return List<HIDP_VALUE_CAPS>("HidP_GetValueCaps", HidP_GetValueCaps, type, room,
                                 preparsed_.get(), [this](Entry entry) { Note(std::move(entry)); });
}

std::vector<HIDP_BUTTON_CAPS> RecordedCalls::GetButtonCaps(HIDP_REPORT_TYPE type, USHORT room) {
    return List<HIDP_BUTTON_CAPS>("HidP_GetButtonCaps", HidP_GetButtonCaps, type, room,
                                  preparsed_.get(),
                                  [this](Entry entry) { Note(std::move(entry)); });
}

void RecordedCalls::MaxUsageListLength(HIDP_REPORT_TYPE type, USAGE page) {
    const ULONG length = HidP_MaxUsageListLength(type, page, preparsed_.get());
    Note({"HidP_MaxUsageListLength(" + TypeName(type) + ", " + Hex(page, 4) + ")",
          {Length(length)}});
}

void RecordedCalls::GetUsages(const Place& place, ULONG room, const Bytes& report) {
    Entry entry{"HidP_GetUsages(" + Text(place) + ", room " + std::to_string(room) + ", " +
                    Text(report) + ")",
                {}};
    Buffer buffer(report);
    UsageList usages(room + 1u);
    ULONG length = room;
    const NTSTATUS status =
        HidP_GetUsages(place.type, place.page, place.link, usages.data(), &length, preparsed_.get(),
                       buffer.Data(), buffer.Length());
    // The length after any other failure is undefined.
    entry.results = {Status(status)};
    if (status == HIDP_STATUS_BUFFER_TOO_SMALL) entry.results.push_back(Length(length));
    if (status == HIDP_STATUS_SUCCESS) {
        usages.resize(length);
        entry.results.emplace_back("usages", Text(usages));
    }
    if (buffer.Content() != report) entry.results.push_back(Changed(buffer));
    Note(std::move(entry));
}

void RecordedCalls::SetUsages(const Place& place, UsageList usages, const Bytes& report) {
    Note(Change("HidP_SetUsages", HidP_SetUsages, place, std::move(usages), preparsed_.get(),
                report));
}

void RecordedCalls::UnsetUsages(const Place& place, UsageList usages, const Bytes& report) {
    Note(Change("HidP_UnsetUsages", HidP_UnsetUsages, place, std::move(usages), preparsed_.get(),
                report));
}

void RecordedCalls::GetUsageValue(const Place& place, USAGE usage, const Bytes& report) {
    constexpr ULONG kUntouched = 0xDEADBEEF;
    Entry entry{
        "HidP_GetUsageValue(" + Text(place) + ", " + Hex(usage, 4) + ", " + Text(report) + ")", {}};
    Buffer buffer(report);
    ULONG value = kUntouched;
    const NTSTATUS status = HidP_GetUsageValue(place.type, place.page, place.link, usage, &value,
                                               preparsed_.get(), buffer.Data(), buffer.Length());
    entry.results = {Status(status)};
    if (value != kUntouched) entry.results.emplace_back("value", Hex(value, 1));
    if (buffer.Content() != report) entry.results.push_back(Changed(buffer));
    Note(std::move(entry));
}

void RecordedCalls::SetUsageValue(const Place& place, USAGE usage, ULONG value,
                                  const Bytes& report) {
    Entry entry{"HidP_SetUsageValue(" + Text(place) + ", " + Hex(usage, 4) + ", " + Hex(value, 1) +
                    ", " + Text(report) + ")",
                {}};
    Buffer buffer(report);
    const NTSTATUS status = HidP_SetUsageValue(place.type, place.page, place.link, usage, value,
                                               preparsed_.get(), buffer.Data(), buffer.Length());
    entry.results = {Status(status)};
    if (buffer.Content() != report) entry.results.push_back(Changed(buffer));
    Note(std::move(entry));
}

}  // namespace parity
