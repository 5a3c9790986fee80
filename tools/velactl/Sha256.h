// The SHA-256 of a file.
#pragma once

#include <filesystem>
#include <string>

namespace velactl {

// Returns 64 hexadecimal digits, or an empty text when the file cannot be read.
std::string Sha256(const std::filesystem::path& file);

}  // namespace velactl
