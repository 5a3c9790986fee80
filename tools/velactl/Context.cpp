#include "tools/velactl/Context.h"

#include <cstdio>

#include "platform/ModuleHandle.h"

namespace velactl {
namespace {

std::filesystem::path ProgramFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return std::filesystem::path(path).parent_path();
}

std::filesystem::path Absolute(const std::string& utf8) {
    if (utf8.empty()) return {};
    return std::filesystem::absolute(std::filesystem::u8path(utf8));
}

}  // namespace

Context::Context(const Options& options)
    : dllFile_(options.dll.empty() ? ProgramFolder() / "VelaAgent.dll" : Absolute(options.dll)),
      logFolder_(Absolute(options.log)),
      json_(options.json) {}

const vela_agent::Library& Context::Library() {
    if (!library_) {
        library_.emplace(dllFile_);
        // The agent reads the "Vela.ini" beside the library, not beside this program.
        vela::SetModuleHandle(library_->Module());
        if (!logFolder_.empty()) logger_.emplace(*library_, logFolder_);
    }
    return *library_;
}

void Context::FindVendorFile() {
    try {
        Library();
    } catch (const vela_agent::LoadError&) {
        // Without the library the agent's own vendor is looked for.
    } catch (const vela_agent::LogError&) {
        // The library is loaded nevertheless.
    }
}

void Context::Print(const Json& result) const { Print(result, RenderText(result)); }

void Context::Print(const Json& result, const std::string& text) const {
    // The strings of a device may not be valid UTF-8.
    const auto replaceBadText = Json::error_handler_t::replace;
    const std::string output = json_ ? result.dump(-1, ' ', false, replaceBadText) + '\n' : text;
    std::fwrite(output.data(), 1, output.size(), stdout);
    std::fflush(stdout);
}

}  // namespace velactl
