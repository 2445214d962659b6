#include "veltrane/kernel/algo/loop_outline.hpp"

#include "veltrane/kernel/algo/fit_plane.hpp"
#include "veltrane/kernel/geom/bezier.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace veltrane::kernel {
namespace {

using Pole = OutlinePiece::Pole;

Point in_space(const Point2& p) {
    return {p.x(), p.y(), 0};
}

OutlinePiece segment(const Point2& a, const Point2& b, std::size_t edge) {
    return {{Pole(a.x(), a.y(), 1), Pole(b.x(), b.y(), 1)}, edge};
}

std::vector<OutlinePiece> pieces_of_edge(const ParameterCurve& path, const Interval& range, bool back,
                                         std::size_t edge) {
    const double a = path.from_edge(range.first), b = path.from_edge(range.last);
    std::vector<OutlinePiece> result;
    for (const BezierSegment& segment :
         bezier_segments(*path.curve->in_plane(), {std::min(a, b), std::max(a, b)})) {
        OutlinePiece& piece = result.emplace_back();
        piece.edge = edge;
        for (std::size_t i = 0; i < segment.poles.size(); ++i) {
            const double w = segment.is_rational() ? segment.weights[i] : 1;
            piece.poles.push_back(w * Pole(segment.poles[i].x(), segment.poles[i].y(), 1));
        }
    }
    if (back == (a <= b)) {
        std::reverse(result.begin(), result.end());
        for (OutlinePiece& piece : result) std::reverse(piece.poles.begin(), piece.poles.end());
    }
    return result;
}

void move_start(OutlinePiece& piece, const Point2& to) {
    Pole& pole = piece.poles.front();
    pole.head<2>() = to * pole[2];
}

bool is_gap(const Point2& a, const Point2& b) {
    return (b - a).norm() > outline_tolerance(kConfusion, a.cwiseAbs().maxCoeff());
}

double distance_to_chord(const Point2& p, const Point2& a, const Point2& b) {
    const Vector2 along = b - a;
    const double square = along.squaredNorm();
    const double share = square > 0 ? std::clamp((p - a).dot(along) / square, 0.0, 1.0) : 0;
    return (p - a - share * along).norm();
}

/// Whether the ray from `p` towards +x crosses the chord. Its lower end belongs to the chord and its upper
/// one does not, so that a ray through a joint crosses once.
bool crosses(const Point2& p, const Point2& a, const Point2& b) {
    const bool upwards = b.y() > a.y();
    const Point2& low = upwards ? a : b;
    const Point2& high = upwards ? b : a;
    if (p.y() < low.y() || p.y() >= high.y()) return false;
    if (std::max(a.x(), b.x()) < p.x()) return false;
    if (std::min(a.x(), b.x()) > p.x()) return true;
    return cross2(high - low, p - low) > 0;
}

/// A piece whose hull does not hold `p` may be pulled straight without passing over `p`, and so may one
/// that is flatter than the distance of `p`: in both cases the chord decides. Others are halved.
Side cross_piece(const OutlinePiece& piece, const Point2& p, double tolerance, bool& odd, int depth) {
    constexpr int kMaxDepth = 48;
    const Point2 a = piece.start(), b = piece.end();
    if (piece.hull().contains(in_space(p), tolerance)) {
        const double sagitta = piece.sagitta();
        if (distance_to_chord(p, a, b) > tolerance + sagitta) {
            odd ^= crosses(p, a, b);
            return Side::Outside;
        }
        if (sagitta <= tolerance / 8 || depth == kMaxDepth) return Side::On;
        for (const OutlinePiece& half : piece.cut(0.5)) {
            if (cross_piece(half, p, tolerance, odd, depth + 1) == Side::On) return Side::On;
        }
        return Side::Outside;
    }
    odd ^= crosses(p, a, b);
    return Side::Outside;
}

std::vector<Interval> heights(const std::vector<Box>& boxes, double margin) {
    std::vector<Interval> result;
    result.reserve(boxes.size());
    for (const Box& box : boxes) result.push_back({box.min().y() - margin, box.max().y() + margin});
    return result;
}

std::vector<Box> hulls_of(const std::vector<OutlinePiece>& pieces) {
    std::vector<Box> hulls;
    hulls.reserve(pieces.size());
    for (const OutlinePiece& piece : pieces) hulls.push_back(piece.hull());
    return hulls;
}

/// Pieces spread over a list, so that a few of them show something of every part.
template <class Visitor>
void visit_spread(std::size_t count, Visitor visitor) {
    constexpr std::size_t kMost = 256;
    const std::size_t step = count / kMost + 1;
    for (std::size_t i = 0; i < count; i += step) {
        if (!visitor(i)) return;
    }
}

}  // namespace

Box OutlinePiece::hull() const {
    Box box;
    for (const Pole& pole : poles) box.add(Point(pole[0] / pole[2], pole[1] / pole[2], 0));
    return box;
}

std::array<OutlinePiece, 2> OutlinePiece::cut(double share) const {
    std::vector<Pole> left, right = poles;
    left.reserve(poles.size());
    for (std::size_t level = right.size(); level > 0; --level) {
        left.push_back(right.front());
        for (std::size_t i = 0; i + 1 < level; ++i) right[i] = (1 - share) * right[i] + share * right[i + 1];
    }
    return {OutlinePiece{std::move(left), edge}, OutlinePiece{std::move(right), edge}};
}

double OutlinePiece::sagitta() const {
    const Point2 a = start(), b = end();
    double result = 0;
    for (std::size_t i = 1; i + 1 < poles.size(); ++i) {
        const Point2 pole = poles[i].head<2>() / poles[i][2];
        result = std::max(result, distance_to_chord(pole, a, b));
    }
    return result;
}

double outline_tolerance(double tolerance, double largest) {
    return above_rounding(tolerance, 16 * largest);
}

std::vector<OutlinePiece> outline_pieces(const Loop& loop) {
    const std::vector<Shape>& edges = group_definition(loop.wire).children();
    std::vector<OutlinePiece> result;
    for (std::size_t n = 0; n < edges.size(); ++n) {
        const std::size_t i = loop.wire.is_reversed() ? edges.size() - 1 - n : n;
        const bool back = loop.wire.is_reversed() != edges[i].is_reversed();
        for (OutlinePiece& piece :
             pieces_of_edge(loop.parameter_curves[i], edge_definition(edges[i]).range(), back, n)) {
            if (!result.empty()) {
                const Point2 joint = result.back().end();
                // Rounding is mended in the piece, a gap that a tolerance allows by a bridge.
                if (is_gap(joint, piece.start())) {
                    result.push_back(segment(joint, piece.start(), n));
                } else {
                    move_start(piece, joint);
                }
            }
            result.push_back(std::move(piece));
        }
    }
    if (result.empty()) return result;
    const Point2 end = result.back().end(), start = result.front().start();
    if (is_gap(end, start)) {
        result.push_back(segment(end, start, edges.size() - 1));
    } else {
        move_start(result.front(), end);
    }
    return result;
}

LoopOutline::LoopOutline(const Loop& loop, double tolerance)
    : pieces_(outline_pieces(loop)),
      hulls_(hulls_of(pieces_)),
      tolerance_(tolerance),
      by_y_(heights(hulls_, tolerance)) {
    for (const Box& hull : hulls_) box_.add(hull);
}

Side LoopOutline::side_of(const Point2& point) const {
    bool odd = false;
    for (const std::size_t i : by_y_.at(point.y())) {
        const Box& hull = hulls_[i];
        if (hull.max().x() < point.x() - tolerance_) continue;
        if (cross_piece(pieces_[i], point, tolerance_, odd, 0) == Side::On) return Side::On;
    }
    return odd ? Side::Inside : Side::Outside;
}

Side LoopOutline::side_of(const LoopOutline& other) const {
    Side side = Side::On;
    visit_spread(other.pieces_.size(), [&](std::size_t i) {
        side = side_of(other.pieces_[i].middle());
        if (side == Side::On) side = side_of(other.pieces_[i].start());
        return side == Side::On;
    });
    return side;
}

std::vector<std::size_t> nesting(std::span<const LoopOutline> outlines, std::span<const double> areas) {
    std::vector<std::size_t> by_area(outlines.size());
    std::iota(by_area.begin(), by_area.end(), std::size_t{0});
    std::stable_sort(by_area.begin(), by_area.end(),
                     [&](std::size_t a, std::size_t b) { return areas[a] > areas[b]; });
    std::vector<Box> boxes;
    for (const std::size_t i : by_area) boxes.push_back(outlines[i].box().enlarged(outlines[i].tolerance()));
    const IntervalBins by_y(heights(boxes, 0));

    std::vector<std::size_t> parents(outlines.size(), kNoParent);
    for (std::size_t rank = 0; rank < by_area.size(); ++rank) {
        const LoopOutline& outline = outlines[by_area[rank]];
        const std::span<const std::size_t> near = by_y.at(outline.box().centre().y());
        auto larger = std::lower_bound(near.begin(), near.end(), rank);
        while (larger != near.begin()) {
            const std::size_t candidate = *--larger;
            const std::size_t index = by_area[candidate];
            if (parents[index] == index || !boxes[candidate].contains(outline.box().min()) ||
                !boxes[candidate].contains(outline.box().max())) {
                continue;
            }
            const Side side = outlines[index].side_of(outline);
            if (side == Side::Outside) continue;
            parents[by_area[rank]] = side == Side::On ? by_area[rank] : index;
            break;
        }
    }
    return parents;
}

}  // namespace veltrane::kernel
