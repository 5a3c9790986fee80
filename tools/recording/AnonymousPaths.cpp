#include "tools/recording/AnonymousPaths.h"

#include <cctype>
#include <regex>
#include <vector>

namespace recording {
namespace {

std::vector<std::string> SplitAtHashes(const std::string& path) {
    std::vector<std::string> parts(1);
    for (const char c : path) {
        if (c == '#') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

std::string LowerCase(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

}  // namespace

std::string AnonymousPaths::Number(const std::string& identity) {
    return std::to_string(numbers_.emplace(LowerCase(identity), numbers_.size() + 1).first->second);
}

std::string AnonymousPaths::Of(const std::string& path) {
    // Twelve digits end a GUID as well; an address follows another character than "-".
    static const std::regex address("(^|[^-0-9a-fA-F])([0-9a-fA-F]{12})(?![0-9a-fA-F])");
    // The last number of an instance id is that of the collection.
    static const std::regex instance("(.*?)(&[0-9a-fA-F]{4})?");
    std::vector<std::string> parts = SplitAtHashes(path);
    for (std::size_t i = 1; i < parts.size(); ++i) {
        std::smatch match;
        if (i == 1) {
            while (std::regex_search(parts[i], match, address)) {
                parts[i] = match.prefix().str() + match[1].str() + "address-" +
                           Number(match[2].str()) + match.suffix().str();
            }
        } else if (i + 1 < parts.size() && std::regex_match(parts[i], match, instance)) {
            parts[i] = Number(match[1].str()) + match[2].str();
        }
    }
    std::string anonymous = parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i) anonymous += '#' + parts[i];
    return anonymous;
}

}  // namespace recording
