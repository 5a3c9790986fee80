#include "tools/velactl/HidCollections.h"

#include <utility>

#include "tools/velactl/Text.h"

namespace velactl {
namespace {

using vela::Verdict;

struct Reason {
    Verdict verdict;
    const char* text;
    bool hasSystemError;  // the system's error is appended
};

constexpr Reason kReasons[] = {
    {Verdict::kNotOpened, "cannot be opened: ", true},
    {Verdict::kNotRead, "cannot be read: ", true},
    {Verdict::kNoCaps, "its report descriptor cannot be read", false},
    {Verdict::kOtherCollection, "another usage page or usage", false},
    {Verdict::kOtherVendor, "a vendor that is not looked for", false},
    {Verdict::kNoWantedValueCap, "no value capability on the wanted usage page", false},
    {Verdict::kNoWantedButtonCap, "no button capability on the wanted usage page", false},
};

std::string ReasonAgainst(Verdict verdict, DWORD error) {
    for (const Reason& reason : kReasons) {
        if (reason.verdict != verdict) continue;
        return reason.text + (reason.hasSystemError ? SystemErrorText(error) : std::string());
    }
    return {};
}

std::wstring ProductString(const vela::FileHandle& device) {
    wchar_t product[256] = {};
    const bool done =
        HidD_GetProductString(device.Get(), product, sizeof(product) - sizeof(product[0]));
    return done ? product : L"";
}

HidCollection ExamineCollection(const std::wstring& path, vela::IDiscoveryQuery& query) {
    const vela::FileHandle device = vela::OpenForExamination(path);
    vela::Examination examination = vela::Examine(query, device);
    const std::string reason = ReasonAgainst(examination.verdict, GetLastError());
    if (examination.preparsedData != nullptr) {
        HidD_FreePreparsedData(std::exchange(examination.preparsedData, nullptr));
    }
    const bool isReadable =
        examination.verdict != Verdict::kNotOpened && examination.verdict != Verdict::kNotRead;
    return {path, isReadable ? ProductString(device) : L"", std::move(examination), reason};
}

}  // namespace

std::vector<HidCollection> ExamineCollections(const std::vector<std::wstring>& paths,
                                              vela::IDiscoveryQuery& query) {
    std::vector<HidCollection> collections;
    for (const std::wstring& path : paths) collections.push_back(ExamineCollection(path, query));
    return collections;
}

const HidCollection* ChosenCollection(const std::vector<HidCollection>& collections) {
    for (const HidCollection& collection : collections) {
        if (collection.examination.verdict == Verdict::kMatches) return &collection;
    }
    return nullptr;
}

}  // namespace velactl
