#include <map>

#include "testing/simulator/hid/Collection.h"
#include "testing/simulator/hid/DescriptorItems.h"
#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator::hid {
namespace {

// A device announces its descriptor's length in 16 bits. No count of whole items (capabilities,
// link collections, pushed states) can then outgrow the platform's 16-bit counters.
constexpr std::size_t kMaxDescriptorLength = 0xFFFF;

using Collections = std::vector<std::shared_ptr<const Collection>>;

class Parser {
 public:
    Collections Parse(const std::vector<std::uint8_t>& descriptor);

 private:
    void Take(const Item& item);
    void AddFields(const Item& item, HIDP_REPORT_TYPE type);
    void OpenCollection(const Item& item);
    void CloseCollection(const Item& item);
    void Pop(const Item& item);
    void ClaimReportId(const Item& item);

    GlobalItems globals_;
    std::vector<GlobalItems> pushed_;
    LocalItems locals_;

    std::vector<std::shared_ptr<Collection>> collections_;
    // The link collections around the current item, the top level first.
    std::vector<USHORT> openLinks_;
    std::map<std::uint8_t, const Collection*> claimedIds_;
};

Collections Parser::Parse(const std::vector<std::uint8_t>& descriptor) {
    if (descriptor.size() > kMaxDescriptorLength) {
        throw DescriptorError("descriptor longer than 65535 bytes");
    }
    DescriptorItems items(descriptor);
    while (const std::optional<Item> item = items.Next()) Take(*item);
    if (!openLinks_.empty()) throw DescriptorError("a collection is not closed");
    if (collections_.empty()) throw DescriptorError("NO_DATA: no top-level collection");
    return {collections_.begin(), collections_.end()};
}

void Parser::Take(const Item& item) {
    switch (item.tag) {
        case ItemTag::Input:
            return AddFields(item, HidP_Input);
        case ItemTag::Output:
            return AddFields(item, HidP_Output);
        case ItemTag::Feature:
            return AddFields(item, HidP_Feature);
        case ItemTag::Collection:
            return OpenCollection(item);
        case ItemTag::EndCollection:
            return CloseCollection(item);
        case ItemTag::Push:
            return pushed_.push_back(globals_);
        case ItemTag::Pop:
            return Pop(item);
        case ItemTag::ReportId:
            if (collections_.empty()) item.Refuse("REPORT_ID: before the first collection");
            [[fallthrough]];
        default:
            if (globals_.Take(item) || locals_.Take(item)) return;
            item.Refuse("ITEM_UNKNOWN: unknown item");
    }
}

void Parser::AddFields(const Item& item, HIDP_REPORT_TYPE type) {
    if (openLinks_.empty()) item.Refuse("a field outside every collection");
    ClaimReportId(item);
    MainItem fields;
    fields.flags = static_cast<std::uint16_t>(item.value);
    fields.globals = globals_;
    fields.usages = locals_.Collect(item, globals_.usagePage);
    fields.linkCollection = openLinks_.back();
    try {
        collections_.back()->Reports(type).Add(fields);
    } catch (const DescriptorError& error) {
        item.Refuse(error.what());
    }
}

void Parser::OpenCollection(const Item& item) {
    const std::vector<DeclaredUsages> usages = locals_.Collect(item, globals_.usagePage);
    LinkCollection link;
    link.usage = {globals_.usagePage, 0};
    if (!usages.empty()) link.usage = {usages.front().page, usages.front().minimum};
    link.type = static_cast<std::uint8_t>(item.value);

    if (!openLinks_.empty()) {
        link.parent = openLinks_.back();
        openLinks_.push_back(collections_.back()->AddLink(link));
        return;
    }
    if (usages.size() != 1 || usages.front().Count() != 1) {
        item.Refuse("TOP_COLLECTION_USAGE: a top-level collection has one usage");
    }
    collections_.push_back(std::make_shared<Collection>(link));
    openLinks_.push_back(0);
}

void Parser::CloseCollection(const Item& item) {
    if (openLinks_.empty()) item.Refuse("UNEXP_END_COL: no collection is open");
    locals_.Collect(item, globals_.usagePage);
    openLinks_.pop_back();
    if (openLinks_.empty() && !EndsOnBytes(*collections_.back())) {
        item.Refuse("BYTE_ALLIGN: a report that does not end on a byte");
    }
}

void Parser::Pop(const Item& item) {
    if (pushed_.empty()) item.Refuse("a pop without a push");
    globals_ = pushed_.back();
    pushed_.pop_back();
}

// A report belongs to one top-level collection, so that the class driver can route it; and either
// all reports have an id byte or none has.
void Parser::ClaimReportId(const Item& item) {
    const Collection* collection = collections_.back().get();
    const auto claim = claimedIds_.emplace(globals_.reportId, collection).first;
    if (claim->second != collection) item.Refuse("a report of two top-level collections");
    if (claimedIds_.count(0) != 0 && claimedIds_.size() > 1) {
        item.Refuse("reports with and without an id");
    }
}

}  // namespace

Collections ParseReportDescriptor(const std::vector<std::uint8_t>& descriptor) {
    return Parser().Parse(descriptor);
}

}  // namespace simulator::hid
