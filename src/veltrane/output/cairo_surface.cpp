#include "veltrane/output/cairo_surface.hpp"

#include <ostream>

namespace veltrane {

cairo_status_t write_to_stream(void* stream, const unsigned char* bytes, unsigned int count) {
    auto& out = *static_cast<std::ostream*>(stream);
    out.write(reinterpret_cast<const char*>(bytes), count);
    return out.good() ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

CairoSurface image_surface(const RasterImage& image) {
    // Not const for a library that might have been asked to draw on it.
    auto* pixels = const_cast<std::uint32_t*>(image.pixels.data());
    return CairoSurface(cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels),
                                                            CAIRO_FORMAT_ARGB32, image.width, image.height,
                                                            image.width * static_cast<int>(sizeof *pixels)));
}

}  // namespace veltrane
