#include "testing/recording/RebuiltDescriptor.h"

#include <algorithm>
#include <deque>
#include <map>

#include "testing/recording/RebuiltItem.h"
#include "testing/recording/UsageRange.h"

namespace recording {
namespace {

struct Type {
    const char* name;
    ItemTag tag;
};
constexpr Type kTypes[] = {
    {"input", ItemTag::Input}, {"output", ItemTag::Output}, {"feature", ItemTag::Feature}};

class Rebuilding {
 public:
    explicit Rebuilding(const Json& capabilities) : capabilities_(capabilities) {
        for (const Type& type : kTypes) {
            Reports reports{type, capabilities.at(type.name).at("length"), {}, {}};
            for (RebuiltItem& item : RebuildItems(capabilities.at(type.name), result_.notes)) {
                reports.items.push_back(std::move(item));
            }
            types_.push_back(std::move(reports));
        }
    }

    RebuiltDescriptor Run() {
        WriteCollection(0);
        for (const Reports& reports : types_) {
            for (const RebuiltItem& item : reports.items) {
                Note(reports, "the item at data index " + std::to_string(item.DataIndex()) +
                                  " is in no link collection that is still open");
            }
        }
        result_.bytes = writer_.Written();
        return std::move(result_);
    }

 private:
    struct Reports {
        Type type;
        std::size_t length;  // of the longest, with its id
        std::deque<RebuiltItem> items;
        std::map<std::uint8_t, std::size_t> ends;  // the bits written so far, by report id
    };

    void Note(const Reports& reports, const std::string& text) {
        result_.notes.push_back(std::string(reports.type.name) + ": " + text);
    }
    std::size_t CollectionCount() const { return capabilities_.at("linkCollections").size(); }

    // Collections are numbered in the order in which they are opened. Each main item is written as
    // soon as its collection is open and the items before it are written.
    void WriteCollection(std::size_t link) {
        const Json& node = capabilities_.at("linkCollections").at(link);
        next_ = link + 1;
        writer_.WriteUsage(ItemTag::Usage,
                           static_cast<std::uint16_t>(NumberOf(node.at("usagePage"))),
                           static_cast<std::uint16_t>(NumberOf(node.at("usage"))));
        writer_.Write(ItemTag::Collection, node.at("type").get<int>());
        WriteItems(link);
        while (next_ < CollectionCount() &&
               capabilities_.at("linkCollections")[next_].at("parent") == link) {
            WriteCollection(next_);
            WriteItems(link);
        }
        if (link == 0) WriteEnds();
        writer_.EndCollection();
    }

    void WriteItems(std::size_t link) {
        for (Reports& reports : types_) {
            while (!reports.items.empty() &&
                   static_cast<std::size_t>(reports.items.front().Link()) == link) {
                FillReport(reports, reports.items.front());
                WriteItem(reports, reports.items.front());
                reports.items.pop_front();
            }
        }
    }

    // An array whose place is not recorded has as many slots of a byte as have room.
    static void FillReport(Reports& reports, RebuiltItem& item) {
        if (item.isPlaced || !item.isArray) return;
        const std::size_t used = (reports.ends[item.ReportId()] + 7) / 8;
        item.bits = 8;
        item.count = reports.length > 1 + used ? reports.length - 1 - used : 1;
    }

    void WriteItem(Reports& reports, const RebuiltItem& item) {
        std::size_t& end = reports.ends[item.ReportId()];
        const std::size_t start = item.isPlaced ? item.startBit : end;
        if (start < end) {
            Note(reports, "the item at data index " + std::to_string(item.DataIndex()) +
                              " overlaps the one before it");
        } else {
            WritePadding(reports, item.ReportId(), start - end);
        }
        end = std::max(end, start) + item.bits * item.count;
        WriteGlobals(item);
        WriteLocals(item);
        writer_.Write(reports.type.tag, NumberOf(item.First().at("bitField")));
    }

    void WriteGlobals(const RebuiltItem& item) {
        const Json& record = item.First();
        const auto number = [&](const char* name) { return record.value(name, std::int64_t{0}); };
        WriteReportId(item.ReportId());
        writer_.Write(ItemTag::LogicalMinimum, item.logicalMinimum);
        writer_.Write(ItemTag::LogicalMaximum, item.logicalMaximum);
        writer_.Write(ItemTag::PhysicalMinimum, number("physicalMinimum"));
        writer_.Write(ItemTag::PhysicalMaximum, number("physicalMaximum"));
        writer_.Write(ItemTag::UnitExponent, number("unitsExponent"));
        writer_.Write(ItemTag::Unit, NumberOf(record.value("units", std::string("0"))));
        writer_.Write(ItemTag::ReportSize, static_cast<std::int64_t>(item.bits));
        writer_.Write(ItemTag::ReportCount, static_cast<std::int64_t>(item.count));
    }

    void WriteLocals(const RebuiltItem& item) {
        for (auto record = item.records.rbegin(); record != item.records.rend(); ++record) {
            const UsageRange usages(**record);
            if (usages.isRange) {
                writer_.WriteUsage(ItemTag::UsageMinimum, usages.page, usages.minimum);
                writer_.WriteUsage(ItemTag::UsageMaximum, usages.page, usages.maximum);
            } else {
                writer_.WriteUsage(ItemTag::Usage, usages.page, usages.minimum);
            }
            WriteIndices((**record).at("strings"), ItemTag::StringIndex, ItemTag::StringMinimum,
                         ItemTag::StringMaximum);
            WriteIndices((**record).at("designators"), ItemTag::DesignatorIndex,
                         ItemTag::DesignatorMinimum, ItemTag::DesignatorMaximum);
        }
    }

    void WriteIndices(const Json& indices, ItemTag single, ItemTag minimum, ItemTag maximum) {
        if (indices.size() == 1) {
            if (indices[0] != 0) writer_.Write(single, indices[0].get<int>());
            return;
        }
        writer_.Write(minimum, indices[0].get<int>());
        writer_.Write(maximum, indices[1].get<int>());
    }

    void WriteReportId(std::uint8_t id) {
        if (id != 0) writer_.Write(ItemTag::ReportId, id);
    }

    void WritePadding(const Reports& reports, std::uint8_t reportId, std::size_t bits) {
        constexpr int kConstant = 0x01;
        if (bits == 0) return;
        WriteReportId(reportId);
        writer_.Write(ItemTag::ReportSize, 1);
        writer_.Write(ItemTag::ReportCount, static_cast<std::int64_t>(bits));
        writer_.Write(reports.type.tag, kConstant);
    }

    // Every report ends on a byte, and the longest with the recorded length. How much padding the
    // shorter ones have shows in no call.
    void WriteEnds() {
        for (Reports& reports : types_) {
            if (reports.length == 0) continue;
            std::size_t longest = 0;
            std::uint8_t longestId = 0;
            if (reports.ends.empty()) {
                longestId = AnyReportId();
                reports.ends[longestId] = 0;
            }
            for (auto& [id, end] : reports.ends) {
                WritePadding(reports, id, (8 - end % 8) % 8);
                end = (end + 7) / 8 * 8;
                if (end <= longest) continue;
                longest = end;
                longestId = id;
            }
            const std::size_t wanted = (reports.length - 1) * 8;
            if (longest >= wanted) continue;
            WritePadding(reports, longestId, wanted - longest);
            if (reports.ends.size() > 1) {
                Note(reports, "which report is " + std::to_string(reports.length) +
                                  " bytes long is a guess: report " + std::to_string(longestId));
            }
        }
    }

    std::uint8_t AnyReportId() const {
        for (const Reports& reports : types_) {
            if (!reports.ends.empty()) return reports.ends.begin()->first;
        }
        return 0;
    }

    const Json& capabilities_;
    ItemWriter writer_;
    RebuiltDescriptor result_;
    std::vector<Reports> types_;
    std::size_t next_ = 0;  // the collection to open next
};

}  // namespace

RebuiltDescriptor RebuildDescriptor(const Json& capabilities) {
    return Rebuilding(capabilities).Run();
}

}  // namespace recording
