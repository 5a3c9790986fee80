#include "tools/velactl/HidCollections.h"

#include <utility>

#include "tools/velactl/Text.h"

namespace velactl {
namespace {

using vela::Verdict;

struct Reason {
    Verdict verdict;
    bool hasSystemError;  // the system's error is appended to the text
    const char* text;
};

constexpr Reason kReasons[] = {
    {Verdict::kNotOpened, true, "cannot be opened: "},
    {Verdict::kNotRead, true, "cannot be read: "},
    {Verdict::kNoCaps, false, "its report descriptor cannot be read"},
    {Verdict::kOtherCollection, false, "another usage page or usage"},
    {Verdict::kOtherVendor, false, "a vendor that is not looked for"},
    {Verdict::kNoWantedValueCap, false, "no value capability on the wanted usage page"},
    {Verdict::kNoWantedButtonCap, false, "no button capability on the wanted usage page"},
};

std::string ReasonAgainst(Verdict verdict, DWORD error) {
    for (const Reason& reason : kReasons) {
        if (reason.verdict != verdict) continue;
        return reason.text + (reason.hasSystemError ? SystemErrorText(error) : std::string());
    }
    return {};
}

HidCollection ExamineCollection(const std::wstring& path, vela::IDiscoveryQuery& query) {
    const vela::FileHandle device = vela::OpenForExamination(path);
    vela::Examination examination = vela::Examine(query, device);
    const std::string reason = ReasonAgainst(examination.verdict, GetLastError());
    if (examination.preparsedData != nullptr) {
        HidD_FreePreparsedData(std::exchange(examination.preparsedData, nullptr));
    }
    return {path, std::move(examination), reason};
}

}  // namespace

std::vector<HidCollection> ExamineCollections(const std::vector<std::wstring>& paths,
                                              vela::IDiscoveryQuery& query) {
    std::vector<HidCollection> collections;
    collections.reserve(paths.size());
    for (const std::wstring& path : paths) collections.push_back(ExamineCollection(path, query));
    return collections;
}

const HidCollection* ChosenCollection(const std::vector<HidCollection>& collections) {
    for (const HidCollection& collection : collections) {
        if (collection.examination.verdict == Verdict::kMatches) return &collection;
    }
    return nullptr;
}

std::wstring ReadProductString(const HidCollection& collection) {
    const vela::FileHandle device = vela::OpenForExamination(collection.path);
    wchar_t product[256] = {};
    const bool done =
        HidD_GetProductString(device.Get(), product, sizeof(product) - sizeof(product[0]));
    return done ? product : L"";
}

}  // namespace velactl
