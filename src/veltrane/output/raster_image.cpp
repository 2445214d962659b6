#include "veltrane/output/raster_image.hpp"

#include "veltrane/output/cairo_surface.hpp"

#include <string_view>
#include <utility>

namespace veltrane {
namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// Gathers bytes as text, three as four characters.
class Base64 {
public:
    void add(std::uint8_t byte) {
        bits_ = bits_ << 8 | byte;
        count_ += 8;
        while (count_ >= 6) put(bits_ >> (count_ -= 6));
    }
    std::string finished() {
        if (count_ > 0) put(bits_ << (6 - count_));
        text_.append((4 - text_.size() % 4) % 4, '=');
        return std::move(text_);
    }

private:
    void put(std::uint32_t bits) { text_ += kDigits[bits & 63]; }

    std::uint32_t bits_ = 0;
    int count_ = 0;  // bits not put yet
    std::string text_;
};

cairo_status_t add_bytes(void* text, const unsigned char* bytes, unsigned int count) {
    for (unsigned int i = 0; i < count; ++i) static_cast<Base64*>(text)->add(bytes[i]);
    return CAIRO_STATUS_SUCCESS;
}

}  // namespace

std::string base64_png(const RasterImage& image) {
    Base64 text;
    cairo_surface_write_to_png_stream(image_surface(image).get(), &add_bytes, &text);
    return text.finished();
}

}  // namespace veltrane
