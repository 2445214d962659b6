// Colours of a picture: the format's colour numbers and the ground they stand on.
#pragma once

#include <cstdint>
#include <string>

namespace veltrane {

struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(const Rgb&, const Rgb&) = default;
};

enum class Ground { White, Black };

Rgb colour_of(Ground ground);

/// The colour of a colour number from 1 to 255; any other number gives that of 7, which is black on a white
/// ground and white on a black one. So does a colour that is the ground's own: nobody would see it.
Rgb palette_colour(int number, Ground ground);

/// "#rrggbb".
std::string hex_text(Rgb colour);

}  // namespace veltrane
