#include "tools/velactl/WholeFile.h"

#include <fstream>

#include "tools/velactl/ExitCodes.h"
#include "tools/velactl/Text.h"

namespace velactl {

void WriteWholeFile(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::path temporary = file;
    temporary += L".part";
    std::ofstream stream(temporary, std::ios::binary);
    stream << text;
    stream.close();
    std::error_code error;
    if (stream) {
        std::filesystem::rename(temporary, file, error);
        if (!error) return;
    }
    const std::string reason = error ? error.message() : "no file can be written there";
    std::filesystem::remove(temporary, error);
    throw Failure("cannot write " + Utf8(file.wstring()) + ": " + reason);
}

}  // namespace velactl
