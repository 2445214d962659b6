// SVG is written here and not through cairo, whose co-ordinates are steps of 1/256 of a unit and which knows
// no groups: a drawing keeps its layers and ten digits of its size.
#include "veltrane/output/canvas.hpp"
#include "veltrane/output/name_text.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

namespace veltrane {
namespace {

class SvgCanvas : public Canvas {
public:
    SvgCanvas(std::ostream& out, const Page& page, Rgb ground)
        : out_(out),
          decimals_(std::clamp(7 - static_cast<int>(std::floor(std::log10(page_size(page)))), 0, 12)) {
        text_ +=
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"";
        number(page.width);
        text_ += "mm\" height=\"";
        number(page.height);
        text_ += "mm\" viewBox=\"0 0 ";
        number(page.width);
        text_ += ' ';
        number(page.height);
        text_ += "\" fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
        text_ += "<rect width=\"100%\" height=\"100%\" fill=\"" + hex_text(ground) + "\"/>\n";
    }

    void begin_item(const Pen& pen) override {
        end_item();
        if (in_group_ && pen == pen_) return;
        end_group();
        text_ += "<g";
        if (!pen.layer.empty()) text_ += " data-layer=\"" + xml_name(pen.layer) + '"';
        if (pen.fills) text_ += " fill=\"" + hex_text(pen.colour) + "\" fill-rule=\"evenodd\"";
        if (pen.width > 0) {
            text_ += " stroke=\"" + hex_text(pen.colour) + "\" stroke-width=\"";
            number(pen.width);
            text_ += '"';
        }
        text_ += ">\n";
        pen_ = pen;
        in_group_ = true;
    }

    void move_to(const kernel::Point2& p) override {
        text_ += in_path_ ? "M" : "<path d=\"M";
        in_path_ = true;
        point(p);
    }
    void line_to(const kernel::Point2& p) override {
        text_ += 'L';
        point(p);
        make_room();
    }
    void curve_to(const kernel::Point2& a, const kernel::Point2& b, const kernel::Point2& p) override {
        text_ += 'C';
        point(a);
        text_ += ' ';
        point(b);
        text_ += ' ';
        point(p);
        make_room();
    }

    void close() override { text_ += 'Z'; }

    void image(const RasterImage& image) override {
        end_item();
        end_group();
        // Older readers know the reference by its older name only.
        text_ +=
            "<image xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"100%\" height=\"100%\" "
            "preserveAspectRatio=\"none\" xlink:href=\"data:image/png;base64,";
        text_ += base64_png(image);
        text_ += "\"/>\n";
        make_room();
    }

    std::string finish() override {
        end_item();
        end_group();
        text_ += "</svg>\n";
        flush();
        return {};
    }

private:
    static double page_size(const Page& page) { return std::max(page.width, page.height); }

    void end_item() {
        if (in_path_) text_ += "\"/>\n";
        in_path_ = false;
        make_room();
    }
    void end_group() {
        if (in_group_) text_ += "</g>\n";
        in_group_ = false;
    }

    void point(const kernel::Point2& p) {
        number(p.x());
        text_ += ' ';
        number(p.y());
    }

    void number(double value) {
        char digits[400];
        char* end =
            std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals_).ptr;
        if (decimals_ > 0) {
            while (end[-1] == '0') --end;
            if (end[-1] == '.') --end;
        }
        const std::string_view shown(digits, static_cast<std::size_t>(end - digits));
        text_ += shown == "-0" ? "0" : shown;
    }

    void make_room() {
        if (text_.size() >= kFull) flush();
    }
    void flush() {
        out_.write(text_.data(), static_cast<std::streamsize>(text_.size()));
        text_.clear();
    }

    static constexpr std::size_t kFull = 1 << 16;

    std::ostream& out_;
    int decimals_;
    std::string text_;
    Pen pen_;
    bool in_group_ = false;
    bool in_path_ = false;
};

}  // namespace

std::unique_ptr<Canvas> make_svg_canvas(std::ostream& out, const Page& page, Rgb ground) {
    return std::make_unique<SvgCanvas>(out, page, ground);
}

}  // namespace veltrane
