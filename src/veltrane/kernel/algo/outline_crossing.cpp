#include "veltrane/kernel/algo/outline_crossing.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace veltrane::kernel {
namespace {

constexpr std::size_t kDirections = 4;
/// Cuts off the middle, where the figures of symmetric drawings do not meet.
constexpr double kCut = 0.4877;
/// Looking at a pair, against passing one over.
constexpr std::size_t kCostOfPair = 16;
/// Directions closer than this are taken as parallel, and the boundaries as touching (radians).
constexpr double kParallel = 1e-5;

/// Extents along x, y and both diagonals.
struct Extents {
    std::array<Interval, kDirections> along;

    bool overlap(const Extents& other, double tolerance) const {
        tolerance *= std::numbers::sqrt2;  // for the diagonals
        for (std::size_t i = 0; i < kDirections; ++i) {
            if (along[i].first > other.along[i].last + tolerance) return false;
            if (other.along[i].first > along[i].last + tolerance) return false;
        }
        return true;
    }
};

Extents extents_of(const OutlinePiece& piece) {
    Extents extents;
    extents.along.fill({std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()});
    for (const OutlinePiece::Pole& pole : piece.poles) {
        const double x = pole[0] / pole[2], y = pole[1] / pole[2];
        const std::array<double, kDirections> values{x, y, x + y, x - y};
        for (std::size_t i = 0; i < kDirections; ++i) {
            Interval& range = extents.along[i];
            range = {std::min(range.first, values[i]), std::max(range.last, values[i])};
        }
    }
    return extents;
}

/// A piece with its place among the others.
struct Placed {
    const OutlinePiece* piece;
    const OutlinePiece* before;
    std::size_t loop;
    Extents extents;
};

double length_of(const OutlinePiece& piece) {
    return (piece.end() - piece.start()).norm();
}

bool is_near(const Point2& a, const Point2& b, double tolerance) {
    return (a - b).norm() <= tolerance;
}

Vector2 start_direction(const OutlinePiece& piece) {
    const Point2 start = piece.start();
    for (const OutlinePiece::Pole& pole : piece.poles) {
        const Vector2 along = pole.head<2>() / pole[2] - start;
        if (along.squaredNorm() > 0) return along;
    }
    return Vector2::Zero();
}

/// Backwards from the end.
Vector2 end_direction(const OutlinePiece& piece) {
    const Point2 end = piece.end();
    for (auto pole = piece.poles.rbegin(); pole != piece.poles.rend(); ++pole) {
        const Vector2 along = pole->head<2>() / (*pole)[2] - end;
        if (along.squaredNorm() > 0) return along;
    }
    return Vector2::Zero();
}

/// Counter-clockwise from `from` to `to`, in [0, 2 pi).
double turn(const Vector2& from, const Vector2& to) {
    const double angle = std::atan2(cross2(from, to), from.dot(to));
    return angle < 0 ? angle + kTwoPi : angle;
}

/// Whether a path through a point passes from one side of another path through it to the other side. All
/// directions lead away from the point.
bool passes_over(const Vector2& in, const Vector2& out, const Vector2& other_in, const Vector2& other_out) {
    for (const Vector2* direction : {&in, &out, &other_in, &other_out}) {
        if (!(direction->squaredNorm() > 0)) return false;
    }
    const double wedge = turn(out, in);
    std::array<bool, 2> inside{};
    for (std::size_t i = 0; i < 2; ++i) {
        const double angle = turn(out, i == 0 ? other_in : other_out);
        const double clear = std::min({angle, kTwoPi - angle, std::abs(angle - wedge)});
        if (clear <= kParallel) return false;
        inside[i] = angle < wedge;
    }
    return inside[0] != inside[1];
}

/// Whether a piece lies on one side of the strip that holds another one (the fat line of T. W. Sederberg and
/// T. Nishita, "Curve intersection using Bezier clipping", Computer-Aided Design 22, 1990).
bool lies_beside(const OutlinePiece& piece, const OutlinePiece& other, double other_sagitta) {
    const Point2 start = other.start();
    const Vector2 chord = other.end() - start;
    const double reach = other_sagitta * chord.norm();
    if (!(chord.squaredNorm() > 0)) return false;
    bool left = true, right = true;
    for (const OutlinePiece::Pole& pole : piece.poles) {
        const double side = cross2(chord, pole.head<2>() / pole[2] - start);
        left = left && side > reach;
        right = right && side < -reach;
    }
    return left || right;
}

/// Total turn of the control polygon: a piece that turns by less than half a turn cannot meet itself.
bool may_meet_itself(const OutlinePiece& piece) {
    double sum = 0;
    Vector2 last = Vector2::Zero();
    for (std::size_t i = 1; i < piece.poles.size(); ++i) {
        const Vector2 leg = piece.poles[i].head<2>() / piece.poles[i][2] -
                            piece.poles[i - 1].head<2>() / piece.poles[i - 1][2];
        if (!(leg.squaredNorm() > 0)) continue;
        if (last.squaredNorm() > 0) sum += std::abs(std::atan2(cross2(last, leg), last.dot(leg)));
        last = leg;
    }
    return sum > std::numbers::pi;
}

class Search {
public:
    Search(std::span<const std::vector<OutlinePiece>> loops, double tolerance, std::size_t budget)
        : tolerance_(tolerance), budget_(budget) {
        for (std::size_t loop = 0; loop < loops.size(); ++loop) {
            const std::vector<OutlinePiece>& pieces = loops[loop];
            for (std::size_t i = 0; i < pieces.size(); ++i) {
                const OutlinePiece& before = pieces[i == 0 ? pieces.size() - 1 : i - 1];
                pieces_.push_back({&pieces[i], &before, loop, extents_of(pieces[i])});
            }
        }
    }

    CrossingSearch run() {
        for (const Placed& placed : pieces_) {
            if (pair_is_done()) break;
            first_ = second_ = &placed;
            meet_itself(*placed.piece, 0);
        }
        const std::size_t direction = best_direction();
        std::vector<std::size_t> order(pieces_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        const auto range = [&](std::size_t i) -> const Interval& {
            return pieces_[i].extents.along[direction];
        };
        std::sort(order.begin(), order.end(),
                  [&](std::size_t a, std::size_t b) { return range(a).first < range(b).first; });
        for (std::size_t i = 0; i < order.size() && !pair_is_done(); ++i) {
            const double reach = range(order[i]).last + 2 * tolerance_;
            for (std::size_t j = i + 1; j < order.size() && range(order[j]).first <= reach; ++j) {
                meet(pieces_[order[i]], pieces_[order[j]]);
                if (pair_is_done()) break;
            }
        }
        return {crossing_, !gave_up_};
    }

private:
    bool pair_is_done() const { return crossing_ || gave_up_; }

    bool spend(std::size_t cost = 1) {
        gave_up_ = gave_up_ || budget_ < cost;
        if (!gave_up_) budget_ -= cost;
        return !gave_up_;
    }

    void found(const Point2& at) {
        crossing_ = {at, first_->loop, first_->piece->edge, second_->loop, second_->piece->edge};
    }

    /// The direction along which the pieces are shortest, all in all, against the whole.
    std::size_t best_direction() const {
        std::size_t best = 0;
        double best_share = std::numeric_limits<double>::infinity();
        for (std::size_t direction = 0; direction < kDirections; ++direction) {
            double sum = 0;
            Interval whole{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
            for (const Placed& placed : pieces_) {
                const Interval& range = placed.extents.along[direction];
                sum += range.length();
                whole = {std::min(whole.first, range.first), std::max(whole.last, range.last)};
            }
            if (!(sum < best_share * whole.length())) continue;
            best = direction;
            best_share = sum / whole.length();
        }
        return best;
    }

    void meet(const Placed& a, const Placed& b) {
        if (!spend() || !a.extents.overlap(b.extents, tolerance_)) return;
        first_ = &a;
        second_ = &b;
        if (a.before != b.piece) pass_joint(a, b);
        if (b.before != a.piece && !pair_is_done()) pass_joint(b, a);
        if (!pair_is_done()) meet(*a.piece, *b.piece, 0);
    }

    /// A joint, the start of a piece, that lies on another piece, or at its start.
    void pass_joint(const Placed& joint, const Placed& other) {
        const Point2 at = joint.piece->start();
        if (is_near(at, other.piece->end(), tolerance_)) return;  // a joint with what comes next
        const Vector2 in = end_direction(*joint.before), out = start_direction(*joint.piece);
        if (is_near(at, other.piece->start(), tolerance_)) {
            if (joint.piece < other.piece &&
                passes_over(in, out, end_direction(*other.before), start_direction(*other.piece))) {
                found(at);
            }
            return;
        }
        const Vector2 along = direction_at(*other.piece, at, 0);
        if (passes_over(in, out, -along, along)) found(at);
    }

    /// The direction of a piece where it passes a point; zero where it does not.
    Vector2 direction_at(const OutlinePiece& piece, const Point2& at, int depth) {
        if (!spend(kCostOfPair) || !piece.hull().contains(Point(at.x(), at.y(), 0), tolerance_))
            return Vector2::Zero();
        if (piece.sagitta() <= tolerance_ / 8 || depth == kMaxDepth) return direction_near(piece, at);
        const std::array<OutlinePiece, 2> parts = piece.cut(kCut);
        const Vector2 first = direction_at(parts[0], at, depth + 1);
        return first.squaredNorm() > 0 ? first : direction_at(parts[1], at, depth + 1);
    }

    /// The direction of a flat piece, turning evenly along its chord.
    Vector2 direction_near(const OutlinePiece& piece, const Point2& at) const {
        const Vector2 chord = piece.end() - piece.start(), offset = at - piece.start();
        const double length = chord.norm();
        if (!(length > 0) || std::abs(cross2(chord, offset)) > 2 * tolerance_ * length)
            return Vector2::Zero();
        const double share = std::clamp(chord.dot(offset) / (length * length), 0.0, 1.0);
        const Vector2 first = start_direction(piece), last = -end_direction(piece);
        return (1 - share) * first.normalized() + share * last.normalized();
    }

    void meet_itself(const OutlinePiece& piece, int depth) {
        if (pair_is_done() || piece.poles.size() < 3 || depth == kMaxDepth) return;
        if (!may_meet_itself(piece) || !spend(kCostOfPair)) return;
        const std::array<OutlinePiece, 2> parts = piece.cut(kCut);
        joint_ = parts[0].end();
        meet(parts[0], parts[1], depth + 1);
        joint_.reset();
        for (const OutlinePiece& part : parts) meet_itself(part, depth + 1);
    }

    /// A crossing of two pieces away from the ends of the pieces they are parts of.
    void meet(const OutlinePiece& a, const OutlinePiece& b, int depth) {
        if (pair_is_done() || !spend(kCostOfPair)) return;
        if (depth > 0 && !extents_of(a).overlap(extents_of(b), 0)) return;
        const double a_sagitta = a.sagitta(), b_sagitta = b.sagitta();
        if (lies_beside(a, b, b_sagitta) || lies_beside(b, a, a_sagitta)) return;
        if (chords_cross(a, b, a_sagitta, b_sagitta)) return;
        const bool a_is_flat = a_sagitta <= tolerance_ / 8, b_is_flat = b_sagitta <= tolerance_ / 8;
        if ((a_is_flat && b_is_flat) || depth >= 2 * kMaxDepth) return;
        const bool cut_a = !a_is_flat && (b_is_flat || length_of(a) >= length_of(b));
        for (const OutlinePiece& part : (cut_a ? a : b).cut(kCut)) {
            meet(cut_a ? part : a, cut_a ? b : part, depth + 1);
        }
    }

    /// Notes a crossing of the chords that is one of the pieces, too: the chords meet at an angle beyond what
    /// the bend of the pieces makes uncertain, and both reach over by more than the tolerance.
    bool chords_cross(const OutlinePiece& a, const OutlinePiece& b, double a_sagitta, double b_sagitta) {
        const Point2 a0 = a.start(), b0 = b.start();
        const Vector2 along_a = a.end() - a0, along_b = b.end() - b0;
        const double a_length = along_a.norm(), b_length = along_b.norm();
        if (!(a_length > 0) || !(b_length > 0)) return false;
        const double sine = cross2(along_a, along_b) / a_length / b_length;
        const double doubt = 4 * (a_sagitta / a_length + b_sagitta / b_length);
        if (std::abs(sine) <= doubt + 1e-12) return false;
        const double on_a = cross2(b0 - a0, along_b) / b_length / sine;
        const double on_b = cross2(b0 - a0, along_a) / a_length / sine;
        if (!(on_a >= 0 && on_a < a_length && on_b >= 0 && on_b < b_length)) return false;
        const Point2 at = a0 + on_a / a_length * along_a;
        if (joint_ && is_near(at, *joint_, 2 * tolerance_)) return false;
        // An end that lies on the other chord within the tolerance is a joint that touches.
        const double reach = (tolerance_ + 2 * (a_sagitta + b_sagitta)) / std::abs(sine);
        for (const Placed* placed : {first_, second_}) {
            if (is_near(at, placed->piece->start(), reach)) return false;
            if (is_near(at, placed->piece->end(), reach)) return false;
        }
        found(at);
        return true;
    }

    static constexpr int kMaxDepth = 40;

    double tolerance_;
    std::size_t budget_;
    std::vector<Placed> pieces_;
    const Placed* first_ = nullptr;  // the pair at hand
    const Placed* second_ = nullptr;
    std::optional<Point2> joint_;  // between parts of one piece
    std::optional<OutlineCrossing> crossing_;
    bool gave_up_ = false;
};

}  // namespace

CrossingSearch find_crossing(std::span<const std::vector<OutlinePiece>> loops, double tolerance,
                             std::size_t budget) {
    return Search(loops, tolerance, budget).run();
}

}  // namespace veltrane::kernel
