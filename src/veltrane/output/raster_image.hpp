// Pixels, and their way into files. Internal to the folder.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace veltrane {

/// Rows from top to bottom; a pixel is 0 where nothing is, else 0xff and its red, green and blue.
struct RasterImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// The image as the text of a PNG in base 64 (RFC 4648), without line breaks.
std::string base64_png(const RasterImage& image);

}  // namespace veltrane
