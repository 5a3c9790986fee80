// The version resource of a library or program.
#pragma once

#include <filesystem>
#include <string>

namespace velactl {

// "1.0.0"; empty when the file has no version resource.
std::string FileVersion(const std::filesystem::path& file);

}  // namespace velactl
