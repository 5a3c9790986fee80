// Uses any bytes as "Vela.ini": the filters for discovery and the logged lines are those that the
// rules for section names give.
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "include/VelaAgent.h"
#include "interface/Singletons.h"
#include "testing/fuzz/Check.h"
#include "testing/fuzz/FuzzDevice.h"
#include "testing/fuzz/FuzzInput.h"
#include "testing/fuzz/HostLog.h"
#include "testing/fuzz/VendorFileModel.h"
#include "testing/kit/native/LibraryFolder.h"

namespace {

using fuzz::Check;
using fuzz::CheckSame;

// Returns the section names from the platform, with a buffer as large as the agent's.
std::vector<std::wstring> SectionNames() {
    std::vector<wchar_t> text(4096);
    const DWORD length = GetPrivateProfileSectionNamesW(
        text.data(), static_cast<DWORD>(text.size()), L"C:\\Vela\\Vela.ini");
    std::vector<std::wstring> names;
    for (std::size_t at = 0; at < length && text[at] != L'\0';) {
        names.emplace_back(&text[at]);
        at += names.back().size() + 1;
    }
    return names;
}

std::vector<std::string> LoggedLines() {
    std::vector<std::string> lines;
    std::ifstream stream(fuzz::HostLog().File(), std::ios::binary);
    for (std::string line; std::getline(stream, line);) {
        // Cuts off "[2024-05-06 17:42:10] " and the carriage return.
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line.erase(0, std::min<std::size_t>(line.size(), 22)));
    }
    return lines;
}

std::vector<unsigned> OfferedVendors() {
    std::vector<unsigned> vendors;
    for (const vela::HidDeviceFilter& filter : vela::TouchpadSession().GetHidDeviceFilters()) {
        Check(filter.UsagePage == 0xFF80 && filter.Usage == 0x80, "another collection is offered");
        vendors.push_back(filter.VendorID);
    }
    return vendors;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    simulator::Machine& machine = kit::EmptyMachine();
    const kit::LibraryFolder folder;
    folder.PutVelaIni({data, data + size});

    std::vector<unsigned> vendors;
    std::vector<std::string> lines;
    for (const std::wstring& name : SectionNames()) {
        if (const auto vendorId = fuzz::VendorIdOf(name)) {
            vendors.push_back(*vendorId & 0xFFFF);
        } else {
            lines.push_back("{WARNING @ GetVidsFromFile} stoul convert failed. " +
                            fuzz::Utf8Of(name));
        }
    }
    if (vendors.empty()) vendors.push_back(0x0488);
    lines.emplace_back("{INFO @ UnInitialize} Logger::UnInitialize");

    std::filesystem::remove(fuzz::HostLog().File());
    InitLogger(fuzz::HostLog().Path().wstring().c_str());
    const std::vector<unsigned> offered = OfferedVendors();
    UnInitLogger();
    CheckSame(offered, vendors, "the vendors offered");
    CheckSame(LoggedLines(), lines, "the log");
    CheckSame(machine.Misuse(), {}, "misuse of the platform");
    return 0;
}
