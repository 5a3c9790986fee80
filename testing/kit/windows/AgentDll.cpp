#include "testing/kit/windows/AgentDll.h"

namespace kit {

std::filesystem::path ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

}  // namespace kit
