// The sheet a picture is drawn on: its size, its scale, its line widths.
#pragma once

#include "veltrane/output/rect.hpp"

#include <string>

namespace veltrane {

enum class PictureFormat { Svg, Pdf, Png };

/// A page and the way onto it. Lengths of the page are in its own units: millimetres for SVG, points for PDF,
/// pixels for PNG. Its y axis points down.
struct Page {
    double width = 0;
    double height = 0;
    Rect area;                  ///< what of the picture plane the page shows, margins included
    double scale = 1;           ///< page units per millimetre of the model
    double default_line = 1;    ///< width of lines without a weight, in page units
    double per_millimetre = 1;  ///< page units per millimetre of line weight
    std::string note;           ///< tells the user when the page is not of true size

    kernel::Point2 to_page(const kernel::Point2& p) const {
        return {(p.x() - area.min().x()) * scale, (area.max().y() - p.y()) * scale};
    }
    kernel::Vector2 vector_to_page(const kernel::Vector2& v) const { return {v.x() * scale, -v.y() * scale}; }
    /// In page units; `lineweight` in millimetres, 0 for the default line. Never thinner than that.
    double line_width(double lineweight) const;
};

/// Sizes of true-scale pages, in millimetres of the longer side. PDF readers take up to 200 inches; a PDF
/// smaller than that minimum would show the steps of its co-ordinates.
inline constexpr double kSmallestSvg = 0.1;
inline constexpr double kLargestSvg = 100'000;
inline constexpr double kSmallestPdf = 10;
inline constexpr double kLargestPdf = 14400 * 25.4 / 72;

/// Longer side of a PNG.
inline constexpr int kSmallestPixels = 16;
inline constexpr int kLargestPixels = 16384;

/// Lays out a page for an area of the picture plane (in millimetres, not a point) with a margin of a
/// twentieth of its longer side all round. SVG and PDF are of true size within the limits above; beyond them
/// the drawing is reduced or enlarged by a round factor, which the note tells. `pixels` is the longer side of
/// a PNG.
Page lay_out(const Rect& area, PictureFormat format, int pixels);

}  // namespace veltrane
