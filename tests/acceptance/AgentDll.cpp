#include "tests/acceptance/AgentDll.h"

#include <stdexcept>
#include <string>

namespace acceptance {
namespace {

template <typename Function>
void Resolve(HMODULE module, const char* name, Function& function) {
    const FARPROC address = GetProcAddress(module, name);
    if (address == nullptr) throw std::runtime_error(std::string("no export ") + name);
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace

std::filesystem::path ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

AgentDll::AgentDll() : AgentDll(ProgramFolder() / "VelaAgent.dll") {}

AgentDll::AgentDll(const std::filesystem::path& file) {
    const HMODULE module = LoadLibraryW(file.c_str());
    if (module == nullptr) {
        throw std::runtime_error("cannot load " + file.string() + ", error " +
                                 std::to_string(GetLastError()));
    }
#define VELA_RESOLVE_EXPORT(name) Resolve(module, #name, this->name);
    VELA_FOR_EACH_EXPORT(VELA_RESOLVE_EXPORT)
#undef VELA_RESOLVE_EXPORT
}

}  // namespace acceptance
