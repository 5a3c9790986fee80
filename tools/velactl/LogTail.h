// Reads a log file while the agent appends to it and renames it when it is too large.
#pragma once

#include <filesystem>
#include <string>

namespace velactl {

class LogTail {
 public:
    explicit LogTail(const std::filesystem::path& folder);

    bool FileExists() const;
    // Returns the text appended since the last call, at first the whole file. When the file was
    // renamed in between, the rest of the backup comes first.
    std::string Read();

 private:
    struct Identity {
        unsigned long volume = 0;
        unsigned long high = 0;
        unsigned long low = 0;
        bool operator==(const Identity& other) const {
            return volume == other.volume && high == other.high && low == other.low;
        }
    };
    struct Piece {
        bool exists = false;
        Identity identity;
        std::string text;  // from the position on
    };
    static Piece ReadFrom(const std::filesystem::path& file, unsigned long long position,
                          const Identity* wanted);

    std::filesystem::path file_;
    std::filesystem::path backup_;
    bool wasRead_ = false;
    Identity identity_;
    unsigned long long position_ = 0;
};

}  // namespace velactl
