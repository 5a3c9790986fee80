#include "tools/velactl/Sha256.h"

#include <windows.h>

#include <bcrypt.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

namespace velactl {
namespace {

using Digest = std::array<UCHAR, 32>;

bool HashOf(std::vector<char>& bytes, Digest& digest) {
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    BCRYPT_HASH_HANDLE hash = nullptr;
    if (BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0) < 0) {
        return false;
    }
    const bool done =
        BCryptCreateHash(algorithm, &hash, nullptr, 0, nullptr, 0, 0) >= 0 &&
        BCryptHashData(hash, reinterpret_cast<PUCHAR>(bytes.data()),
                       static_cast<ULONG>(bytes.size()), 0) >= 0 &&
        BCryptFinishHash(hash, digest.data(), static_cast<ULONG>(digest.size()), 0) >= 0;
    if (hash != nullptr) BCryptDestroyHash(hash);
    BCryptCloseAlgorithmProvider(algorithm, 0);
    return done;
}

}  // namespace

std::string Sha256(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return {};
    std::vector<char> bytes((std::istreambuf_iterator<char>(stream)),
                            std::istreambuf_iterator<char>());
    Digest digest{};
    if (!HashOf(bytes, digest)) return {};
    std::string text;
    for (const UCHAR byte : digest) {
        char digits[4];
        std::snprintf(digits, sizeof(digits), "%02x", static_cast<unsigned>(byte));
        text += digits;
    }
    return text;
}

}  // namespace velactl
