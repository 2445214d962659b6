// Loops as figures of the parameter plane: which points they enclose, and which loops enclose others.
#pragma once

#include "veltrane/kernel/algo/interval_bins.hpp"
#include "veltrane/kernel/math/box.hpp"
#include "veltrane/kernel/topo/definition.hpp"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace veltrane::kernel {

/// A rational Bezier curve of the plane by poles (w x, w y, w); the weights are positive.
struct OutlinePiece {
    using Pole = Eigen::Matrix<double, 3, 1, Eigen::DontAlign>;
    std::vector<Pole> poles;
    std::size_t edge = 0;  ///< position in the running order of the loop

    Point2 start() const { return poles.front().head<2>() / poles.front()[2]; }
    Point2 end() const { return poles.back().head<2>() / poles.back()[2]; }
    /// Of the poles, with z = 0: it holds the piece, and tightly where that is straight.
    Box hull() const;
    /// The parts before and after a share of its parameters (de Casteljau).
    std::array<OutlinePiece, 2> cut(double share) const;
    Point2 middle() const { return cut(0.5).front().end(); }
    /// The greatest distance between the piece and its chord is at most this.
    double sagitta() const;
};

/// `tolerance`, or what rounding makes of points with parameters up to `largest` when their pieces are cut
/// over and over, if that is more.
double outline_tolerance(double tolerance, double largest);

/// The pieces of a loop in running order, each starting where the one before ends: gaps within the loop are
/// bridged by straight pieces. Throws KernelError for an unbounded edge.
std::vector<OutlinePiece> outline_pieces(const Loop& loop);

enum class Side { Inside, Outside, On };

/// A closed outline, prepared for many questions. Points within `tolerance` lie on it; where it crosses
/// itself, inside is what a ray leaves by an odd number of crossings.
class LoopOutline {
public:
    LoopOutline(const Loop& loop, double tolerance);

    const std::vector<OutlinePiece>& pieces() const { return pieces_; }
    const Box& box() const { return box_; }
    double tolerance() const { return tolerance_; }

    Side side_of(const Point2& point) const;
    /// Where another loop lies that does not cross this one: decided by the first of its points that is not
    /// on this outline; On when none is found.
    Side side_of(const LoopOutline& other) const;

private:
    std::vector<OutlinePiece> pieces_;
    std::vector<Box> hulls_;
    Box box_;
    double tolerance_;
    IntervalBins by_y_;
};

inline constexpr std::size_t kNoParent = static_cast<std::size_t>(-1);

/// For every outline the smallest one around it, or kNoParent; an outline that repeats another one, with all
/// its points on that one, has itself for parent. Outlines may touch but should not cross.
std::vector<std::size_t> nesting(std::span<const LoopOutline> outlines, std::span<const double> areas);

}  // namespace veltrane::kernel
