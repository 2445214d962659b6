#include "veltrane/output/page.hpp"

#include "veltrane/output/number_text.hpp"

#include <algorithm>
#include <cmath>

namespace veltrane {
namespace {

constexpr double kMargin = 0.05;
constexpr double kPointsPerMillimetre = 72 / 25.4;
// Line weights are meant for sheets of paper. A page outside of their sizes is treated as a sheet that was
// enlarged or reduced, since half a millimetre is a blot on a stamp and invisible on a house.
constexpr double kSmallestSheet = 100;
constexpr double kLargestSheet = 1200;
constexpr double kDefaultLinesPerPage = 1500;  // of the default width, side by side along the longer side
constexpr double kPixelSheet = 300;            // what a PNG is a picture of, in millimetres

/// The smallest of 1, 2, 5, 10, 20, ... that is not below `least`, which is at least 1.
double round_factor(double least) {
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double digit : {1.0, 2.0, 5.0, 10.0}) {
        if (digit * power >= least) return digit * power;
    }
    return 10 * power;
}

struct SizeLimits {
    double smallest;
    double largest;
};

/// How much larger than true the drawing is shown, and the note on it.
double true_size_factor(double length, const SizeLimits& limits, std::string& note) {
    if (length > limits.largest) {
        const double factor = round_factor(length / limits.largest);
        note = "The page would be " + number_text(length / 1000, 4) +
               " m long; it is drawn at 1:" + number_text(factor) + ", because a page may have at most " +
               number_text(limits.largest) + " mm.";
        return 1 / factor;
    }
    if (length < limits.smallest) {
        const double factor = round_factor(limits.smallest / length);
        note = "The page would be " + number_text(length, 4) + " mm long; it is drawn at " +
               number_text(factor) + ":1, because a page must have at least " + number_text(limits.smallest) +
               " mm.";
        return factor;
    }
    return 1;
}

}  // namespace

double Page::line_width(double lineweight) const {
    return lineweight > 0 ? std::max(lineweight * per_millimetre, default_line) : default_line;
}

Page lay_out(const Rect& area, PictureFormat format, int pixels) {
    Page page;
    page.area = area.enlarged(kMargin * area.long_side());
    const double length = page.area.long_side();
    if (format == PictureFormat::Png) {
        const int side = std::clamp(pixels, kSmallestPixels, kLargestPixels);
        page.scale = side / length;
        page.per_millimetre = side / kPixelSheet;
        page.default_line = std::max(1.0, side / kDefaultLinesPerPage);
        page.width = std::max(1.0, std::round(page.area.width() * page.scale));
        page.height = std::max(1.0, std::round(page.area.height() * page.scale));
        return page;
    }
    const bool is_pdf = format == PictureFormat::Pdf;
    const SizeLimits limits =
        is_pdf ? SizeLimits{kSmallestPdf, kLargestPdf} : SizeLimits{kSmallestSvg, kLargestSvg};
    const double factor = true_size_factor(length, limits, page.note);
    const double unit = is_pdf ? kPointsPerMillimetre : 1;
    const double sheet = length * factor;  // millimetres
    page.scale = factor * unit;
    page.width = page.area.width() * page.scale;
    page.height = page.area.height() * page.scale;
    page.default_line = sheet * unit / kDefaultLinesPerPage;
    page.per_millimetre = unit * sheet / std::clamp(sheet, kSmallestSheet, kLargestSheet);
    return page;
}

}  // namespace veltrane
