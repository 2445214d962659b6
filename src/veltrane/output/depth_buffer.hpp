// A raster that knows what is nearest to the eye. Internal to the folder.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/output/colour.hpp"
#include "veltrane/output/raster_image.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace veltrane {

/// Takes triangles in any order and keeps, for each pixel, colour and depth of the one nearest to the eye; of
/// triangles in one plane, that which came last. Lengths are pixels: x to the right, y downwards, z towards
/// the eye.
class DepthBuffer {
public:
    /// Positive sides; 16 bytes for each pixel. After `most_work` triangles leave no trace, but are counted
    /// as work still.
    DepthBuffer(int width, int height, std::uint64_t most_work);

    /// Triangles that share a side neither overlap nor leave a gap. One that is seen edge-on leaves no trace.
    void add(const std::array<kernel::Point, 3>& corners, Rgb colour);
    /// True for a place that lies behind a triangle, and not just on it: places up to a pixel behind count as
    /// on it, so that edges and what is drawn on a face are not eaten by the face.
    bool hides(const kernel::Point& place) const;

    int width() const { return width_; }
    int height() const { return height_; }
    /// Pixels and rows of the triangles so far: what the time goes by.
    std::uint64_t work() const { return work_; }
    RasterImage image() const;

private:
    /// Of the triangle that is nearest.
    struct Cell {
        float slope_x = 0, slope_y = 0;  // depth over pixels
        std::uint32_t colour = 0;
    };
    struct Plane;

    void fill_row(int row, double left, double right, const Plane& plane);
    std::size_t index(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(column);
    }

    int width_, height_;
    std::vector<float> depths_;
    std::vector<Cell> cells_;
    std::uint64_t most_work_;
    std::uint64_t work_ = 0;
};

}  // namespace veltrane
