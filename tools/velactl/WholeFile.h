// Writes a file whole or not at all.
#pragma once

#include <filesystem>
#include <string>

namespace velactl {

// Writes a temporary file beside it, which then replaces it. Throws Failure when that fails; the
// temporary file is removed, and the old file is as it was.
void WriteWholeFile(const std::filesystem::path& file, const std::string& text);

}  // namespace velactl
