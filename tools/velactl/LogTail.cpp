#include "tools/velactl/LogTail.h"

#include <windows.h>

#include "platform/FileHandle.h"

namespace velactl {

LogTail::LogTail(const std::filesystem::path& folder)
    : file_(folder / "VelaAgent.log"), backup_(folder / "VelaAgent.log.old") {}

bool LogTail::FileExists() const { return std::filesystem::exists(file_); }

// Returns no text of a file other than `wanted`. The file is opened only for a moment and with all
// share modes, as the agent could not rename it otherwise.
LogTail::Piece LogTail::ReadFrom(const std::filesystem::path& file, unsigned long long position,
                                 const Identity* wanted) {
    Piece piece;
    const vela::FileHandle handle(CreateFileW(
        file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    BY_HANDLE_FILE_INFORMATION information{};
    if (!handle.IsValid() || !GetFileInformationByHandle(handle.Get(), &information)) return piece;
    piece.exists = true;
    piece.identity = {information.dwVolumeSerialNumber, information.nFileIndexHigh,
                      information.nFileIndexLow};
    if (wanted != nullptr && !(piece.identity == *wanted)) return piece;
    LARGE_INTEGER start;
    start.QuadPart = static_cast<LONGLONG>(position);
    if (!SetFilePointerEx(handle.Get(), start, nullptr, FILE_BEGIN)) return piece;
    char buffer[65536];
    DWORD size = 0;
    while (ReadFile(handle.Get(), buffer, sizeof(buffer), &size, nullptr) && size > 0) {
        piece.text.append(buffer, size);
    }
    return piece;
}

std::string LogTail::Read() {
    std::string text;
    if (wasRead_) {
        const Piece rest = ReadFrom(file_, position_, &identity_);
        position_ += rest.text.size();
        if (!rest.exists || rest.identity == identity_) return rest.text;
        text = ReadFrom(backup_, position_, &identity_).text;
    }
    const Piece whole = ReadFrom(file_, 0, nullptr);
    wasRead_ = whole.exists;
    identity_ = whole.identity;
    position_ = whole.text.size();
    return text + whole.text;
}

}  // namespace velactl
