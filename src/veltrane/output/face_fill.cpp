#include "veltrane/output/face_fill.hpp"

#include "veltrane/kernel/geom/bezier.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/output/limits.hpp"
#include "veltrane/output/outline.hpp"

#include <algorithm>
#include <vector>

namespace veltrane {
namespace {

using kernel::Point;
using kernel::Point2;

/// Gathers the contours of a face, since a face that turns out to be unbounded is not to be drawn in part.
class Contours : public OutlineSink {
public:
    Contours(const Projection& projection, double deviation)
        : projection_(projection), deviation_(deviation) {}

    /// False when the loop has parts that no contour can have.
    bool add(const kernel::Shape& loop) {
        starts_.push_back(pieces_.size());
        OutlineCount count;
        outline(loop, kMostParts, *this, count);
        return is_bounded_ && count.is_complete && count.skipped == 0 && pieces_.size() > starts_.back();
    }

    void draw_on(Canvas& canvas) const {
        for (std::size_t loop = 0; loop < starts_.size(); ++loop) {
            const std::size_t end = loop + 1 < starts_.size() ? starts_[loop + 1] : pieces_.size();
            canvas.move_to(pieces_[starts_[loop]].from);
            for (std::size_t i = starts_[loop]; i < end; ++i) draw_on(canvas, i, i > starts_[loop]);
            canvas.close();
        }
    }

    void point(const Point&) override {}
    void segment(const Point& from, const Point& to) override {
        const Point2 start = projection_.on_page(from), end = projection_.on_page(to);
        pieces_.push_back({start, start, end, end, false});
    }
    void unbounded_line(const kernel::Line&, const kernel::Interval&) override { is_bounded_ = false; }
    void curve(const kernel::Curve& curve, const kernel::Interval& range, bool is_reversed) override {
        const auto cubics = kernel::cubic_segments(curve, range, deviation_);
        const auto first = static_cast<std::ptrdiff_t>(pieces_.size());
        for (const kernel::CubicSegment& cubic : cubics) {
            const auto on_page = [&](std::size_t i) { return projection_.on_page(cubic[i]); };
            pieces_.push_back({on_page(0), on_page(1), on_page(2), on_page(3), true});
        }
        if (!is_reversed) return;
        std::reverse(pieces_.begin() + first, pieces_.end());
        for (auto piece = pieces_.begin() + first; piece != pieces_.end(); ++piece) {
            std::swap(piece->from, piece->to);
            std::swap(piece->a, piece->b);
        }
    }

private:
    struct Piece {
        Point2 from, a, b, to;
        bool is_curved;
    };

    void draw_on(Canvas& canvas, std::size_t i, bool is_joined) const {
        const Piece& piece = pieces_[i];
        // Ends of edges meet within a tolerance only.
        if (is_joined && piece.from != pieces_[i - 1].to) canvas.line_to(piece.from);
        if (piece.is_curved) {
            canvas.curve_to(piece.a, piece.b, piece.to);
        } else {
            canvas.line_to(piece.to);
        }
    }

    const Projection& projection_;
    double deviation_;
    std::vector<Piece> pieces_;
    std::vector<std::size_t> starts_;
    bool is_bounded_ = true;
};

}  // namespace

bool fill_face(const kernel::Shape& face, const Pen& pen, const Projection& projection, double deviation,
               Canvas& canvas) {
    Contours contours(projection, deviation);
    const std::vector<kernel::Shape> loops = kernel::children(face);
    for (const kernel::Shape& loop : loops) {
        if (!contours.add(loop)) return false;
    }
    if (loops.empty()) return false;
    canvas.begin_item(pen);
    contours.draw_on(canvas);
    return true;
}

}  // namespace veltrane
