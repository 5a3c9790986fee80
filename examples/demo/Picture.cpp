#include "examples/demo/Picture.h"

#include <algorithm>
#include <cstddef>

namespace demo {
namespace {

constexpr std::size_t kCellWidth = 16;

struct Colour {
    int red, green, blue;
};

// White: ready to be switched on. Green: on.
constexpr Colour kOffLight{235, 235, 235};
constexpr Colour kOnLight{60, 220, 110};
constexpr Colour kChatLight{190, 120, 255};
constexpr Colour kShareLight{90, 170, 255};

// A lit light is never as dark as an unlit one, however low its brightness.
int Level(int full, std::uint8_t brightness) {
    constexpr int kUnlit = 40;
    constexpr int kDimmest = 90;
    if (brightness == 0) return kUnlit;
    return kDimmest + ((std::max)(full, kDimmest) - kDimmest) * brightness / 255;
}

std::string Cell(const std::string& text, const Colour& colour, std::uint8_t brightness) {
    const std::size_t left = (kCellWidth - text.size()) / 2;
    const std::string padded =
        std::string(left, ' ') + text + std::string(kCellWidth - left - text.size(), ' ');
    const auto channel = [brightness](int full) { return std::to_string(Level(full, brightness)); };
    const std::string foreground = brightness == 0 ? "38;2;130;130;130" : "38;2;0;0;0";
    return "\x1b[" + foreground + ";48;2;" + channel(colour.red) + ";" + channel(colour.green) +
           ";" + channel(colour.blue) + "m" + padded + "\x1b[0m ";
}

std::string TwoLights(const char* name, std::uint8_t off, std::uint8_t on) {
    const std::string text = name;
    if (on != 0) return Cell(text + " on", kOnLight, on);
    return Cell(off != 0 ? text + " off" : text, kOffLight, off);
}

std::string ChatText(const LightState& lights) {
    switch (static_cast<Breathing>(lights.breathing)) {
        case Breathing::Starts:
        case Breathing::GoesOn:
            return "chat ~breathes~";
        default:
            return "chat";
    }
}

}  // namespace

std::string Picture(const LightState& lights) {
    if (!lights.isPluggedIn) return "    no touchpad\n";
    return "    " + TwoLights("camera", lights.cameraOff, lights.cameraOn) +
           TwoLights("mic", lights.microphoneOff, lights.microphoneOn) +
           Cell(ChatText(lights), kChatLight, lights.chat) +
           Cell("share screen", kShareLight, lights.shareScreen) + "\n";
}

std::string HapticPicture(std::uint8_t intensity) {
    constexpr std::size_t kCells = 25;
    const std::size_t full = kCells * std::min<std::size_t>(intensity, 100) / 100;
    return "    feedback \x1b[48;2;60;220;110m" + std::string(full, ' ') + "\x1b[48;2;40;40;40m" +
           std::string(kCells - full, ' ') + "\x1b[0m " + std::to_string(intensity) + "\n";
}

}  // namespace demo
