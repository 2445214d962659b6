// Crossings of outlines in a plane.
#pragma once

#include "veltrane/kernel/algo/loop_outline.hpp"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace veltrane::kernel {

/// A place where a boundary passes from one side of itself, or of another boundary, to the other.
struct OutlineCrossing {
    Point2 at;
    std::size_t first_loop, first_edge;  ///< by position in the running order
    std::size_t second_loop, second_edge;
};

struct CrossingSearch {
    std::optional<OutlineCrossing> crossing;  ///< one of them
    bool is_complete = true;                  ///< false when the search was given up
};

/// Looks for a crossing within and between closed outlines, each in running order as outline_pieces() gives
/// it. Boundaries that only touch, also along a part, do not cross; what comes within `tolerance` touches.
/// Pieces are paired by a sweep along that one of four directions in which they overlap least; pairs are
/// halved towards their meeting points. After `budget` comparisons the search is given up, so that time is
/// bounded for any input.
CrossingSearch find_crossing(std::span<const std::vector<OutlinePiece>> loops, double tolerance,
                             std::size_t budget = 20'000'000);

}  // namespace veltrane::kernel
