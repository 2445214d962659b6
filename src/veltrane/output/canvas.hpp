// Where strokes and fills are drawn. Internal to the folder.
#pragma once

#include "veltrane/base/text.hpp"
#include "veltrane/output/colour.hpp"
#include "veltrane/output/page.hpp"
#include "veltrane/output/raster_image.hpp"

#include <memory>
#include <ostream>
#include <string>

namespace veltrane {

struct Pen {
    Rgb colour;
    double width = 1;  ///< page units; 0 for a fill alone
    Text layer;
    bool fills = false;  ///< what an odd number of the item's contours encloses is filled, too
    friend bool operator==(const Pen&, const Pen&) = default;
};

/// Strokes and fills on a page, in page units and drawn one over the other. Strokes have round ends; one of
/// no length is a dot.
class Canvas {
public:
    virtual ~Canvas() = default;

    /// Begins the strokes of one item; ends those of the item before.
    virtual void begin_item(const Pen& pen) = 0;
    virtual void move_to(const kernel::Point2& p) = 0;
    virtual void line_to(const kernel::Point2& p) = 0;
    /// A cubic Bezier piece from the current point.
    virtual void curve_to(const kernel::Point2& a, const kernel::Point2& b, const kernel::Point2& p) = 0;
    /// Closes a contour of a fill.
    virtual void close() = 0;
    /// An image as large as the page.
    virtual void image(const RasterImage& image) = 0;
    /// Ends the picture. A problem in words, or nothing; the stream's own state says whether all was written.
    virtual std::string finish() = 0;
};

/// Writes SVG, a group for each run of items with one layer and pen and a path for each item; images become
/// data in the file. Memory does not grow with the picture.
std::unique_ptr<Canvas> make_svg_canvas(std::ostream& out, const Page& page, Rgb ground);

/// Draws through cairo into PDF or PNG.
std::unique_ptr<Canvas> make_cairo_canvas(std::ostream& out, const Page& page, Rgb ground,
                                          PictureFormat format);

}  // namespace veltrane
