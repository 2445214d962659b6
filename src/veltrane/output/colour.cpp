// The palette is a colour wheel: 10 to 249 are 24 hues of ten shades, five levels of brightness each pure and
// mixed half and half with grey.
#include "veltrane/output/colour.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace veltrane {
namespace {

constexpr std::array<Rgb, 9> kNamed = {{{255, 0, 0},
                                        {255, 255, 0},
                                        {0, 255, 0},
                                        {0, 255, 255},
                                        {0, 0, 255},
                                        {255, 0, 255},
                                        {255, 255, 255},
                                        {128, 128, 128},
                                        {192, 192, 192}}};
constexpr std::array<double, 5> kBrightness = {255, 165, 127, 76, 38};

/// Share of one primary at a distance from its place on the wheel, in steps of 15 degrees: full for 60
/// degrees to both sides, then falling to nothing within 60 more.
double share(int hue, int place) {
    const int steps = std::abs(hue - place);
    const int distance = std::min(steps, 24 - steps);
    return std::clamp((8 - distance) / 4.0, 0.0, 1.0);
}

Rgb wheel_colour(int number) {
    const int hue = number / 10 - 1;
    const int shade = number % 10;
    const double brightness = kBrightness[static_cast<std::size_t>(shade / 2)];
    const auto level = [&](int place) {
        const double pure = share(hue, place);
        return static_cast<std::uint8_t>(brightness * (shade % 2 == 0 ? pure : (1 + pure) / 2));
    };
    return {level(0), level(8), level(16)};
}

Rgb grey(int number) {
    const auto level = static_cast<std::uint8_t>(std::lround(51 + 40.8 * (number - 250)));
    return {level, level, level};
}

}  // namespace

Rgb colour_of(Ground ground) {
    return ground == Ground::White ? Rgb{255, 255, 255} : Rgb{0, 0, 0};
}

Rgb palette_colour(int number, Ground ground) {
    const Rgb contrast = colour_of(ground == Ground::White ? Ground::Black : Ground::White);
    if (number == 7 || number < 1 || number > 255) return contrast;
    const Rgb colour = number < 10    ? kNamed[static_cast<std::size_t>(number) - 1]
                       : number < 250 ? wheel_colour(number)
                                      : grey(number);
    return colour == colour_of(ground) ? contrast : colour;
}

std::string hex_text(Rgb colour) {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string text = "#";
    for (const std::uint8_t level : {colour.red, colour.green, colour.blue}) {
        text += kDigits[level >> 4];
        text += kDigits[level & 15];
    }
    return text;
}

}  // namespace veltrane
