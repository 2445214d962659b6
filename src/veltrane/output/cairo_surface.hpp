// What the drawing library draws on. Internal to the folder.
#pragma once

#include "veltrane/output/raster_image.hpp"

#include <cairo.h>

#include <memory>

namespace veltrane {

struct DestroySurface {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, DestroySurface>;

/// Takes the bytes of a file to a std::ostream.
cairo_status_t write_to_stream(void* stream, const unsigned char* bytes, unsigned int count);

/// A surface over the pixels of an image, which must live as long and is not changed.
CairoSurface image_surface(const RasterImage& image);

}  // namespace veltrane
