// The version resource of a library or program.
#pragma once

#include <filesystem>
#include <string>

namespace velactl {

// Returns the version as "1.0.0", or an empty text when the file has no version resource.
std::string FileVersion(const std::filesystem::path& file);

}  // namespace velactl
