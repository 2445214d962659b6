#include "veltrane/output/cairo_surface.hpp"
#include "veltrane/output/canvas.hpp"

#include <cairo-pdf.h>

namespace veltrane {
namespace {

struct Destroy {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

cairo_surface_t* make_surface(std::ostream& out, const Page& page, PictureFormat format) {
    if (format == PictureFormat::Pdf) {
        return cairo_pdf_surface_create_for_stream(&write_to_stream, &out, page.width, page.height);
    }
    return cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(page.width),
                                      static_cast<int>(page.height));
}

/// Pieces of one pen are stroked together, but not too many: the time of a stroke grows faster than its
/// length.
class CairoCanvas : public Canvas {
public:
    CairoCanvas(std::ostream& out, const Page& page, Rgb ground, PictureFormat format)
        : out_(out),
          format_(format),
          width_(page.width),
          height_(page.height),
          surface_(make_surface(out, page, format)),
          context_(cairo_create(surface_.get())) {
        set_source(ground);
        cairo_paint(context_.get());
        cairo_set_line_cap(context_.get(), CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(context_.get(), CAIRO_LINE_JOIN_ROUND);
        cairo_set_fill_rule(context_.get(), CAIRO_FILL_RULE_EVEN_ODD);
    }

    void begin_item(const Pen& pen) override {
        const bool is_same = pen.colour == pen_.colour && pen.width == pen_.width;
        if (is_same && !pen.fills && !pen_.fills && pieces_ < kMostPieces) return;
        paint();
        pen_ = pen;
        set_source(pen.colour);
        cairo_set_line_width(context_.get(), pen.width);
    }

    void move_to(const kernel::Point2& p) override { cairo_move_to(context_.get(), p.x(), p.y()); }
    void line_to(const kernel::Point2& p) override {
        cairo_line_to(context_.get(), p.x(), p.y());
        count_piece(p);
    }
    void curve_to(const kernel::Point2& a, const kernel::Point2& b, const kernel::Point2& p) override {
        cairo_curve_to(context_.get(), a.x(), a.y(), b.x(), b.y(), p.x(), p.y());
        count_piece(p);
    }

    void close() override { cairo_close_path(context_.get()); }

    void image(const RasterImage& image) override {
        paint();
        const CairoSurface pixels = image_surface(image);
        cairo_save(context_.get());
        cairo_scale(context_.get(), width_ / image.width, height_ / image.height);
        cairo_set_source_surface(context_.get(), pixels.get(), 0, 0);
        cairo_paint(context_.get());
        cairo_restore(context_.get());
        set_source(pen_.colour);
    }

    std::string finish() override {
        paint();
        if (format_ == PictureFormat::Png && status() == CAIRO_STATUS_SUCCESS) {
            const auto written = cairo_surface_write_to_png_stream(surface_.get(), &write_to_stream, &out_);
            if (written != CAIRO_STATUS_SUCCESS) return cairo_status_to_string(written);
        }
        const cairo_status_t drawn = status();
        cairo_surface_finish(surface_.get());
        const cairo_status_t finished = cairo_surface_status(surface_.get());
        if (drawn != CAIRO_STATUS_SUCCESS) return cairo_status_to_string(drawn);
        return finished == CAIRO_STATUS_SUCCESS ? std::string() : cairo_status_to_string(finished);
    }

private:
    static constexpr int kMostPieces = 200;
    static constexpr int kLongestPath = 2000;

    void set_source(Rgb colour) {
        cairo_set_source_rgb(context_.get(), colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0);
    }

    /// A path of one item that is too long goes on from where it was cut.
    void count_piece(const kernel::Point2& end) {
        if (++pieces_ < kLongestPath || pen_.fills) return;
        paint();
        move_to(end);
    }

    /// Draws the path gathered so far.
    void paint() {
        if (pieces_ > 0) {
            if (pen_.fills) cairo_fill_preserve(context_.get());
            if (pen_.width > 0) cairo_stroke_preserve(context_.get());
            cairo_new_path(context_.get());
        }
        pieces_ = 0;
    }

    cairo_status_t status() const { return cairo_status(context_.get()); }

    std::ostream& out_;
    PictureFormat format_;
    double width_, height_;
    CairoSurface surface_;
    std::unique_ptr<cairo_t, Destroy> context_;
    Pen pen_{{}, -1, {}};
    int pieces_ = 0;
};

}  // namespace

std::unique_ptr<Canvas> make_cairo_canvas(std::ostream& out, const Page& page, Rgb ground,
                                          PictureFormat format) {
    return std::make_unique<CairoCanvas>(out, page, ground, format);
}

}  // namespace veltrane
