// How much of what a scene holds: counts, lengths, areas, volumes, contours.
#pragma once

#include "veltrane/kernel/math/box.hpp"
#include "veltrane/output/scene.hpp"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace veltrane {

/// Counts stop at the largest std::size_t, which nested arrays do reach.
struct Measures {
    /// Shapes by static_cast<std::size_t>(kind). Compounds are counted as their members.
    std::array<std::size_t, kernel::kShapeKindCount> shapes{};
    double length = 0;           ///< of the curves that bound no face, millimetres
    double area = 0;             ///< of the faces, square millimetres
    double volume = 0;           ///< of the solids and closed shells, cubic millimetres; never negative
    std::size_t closed = 0;      ///< contours that close
    std::size_t open = 0;        ///< contours that do not
    std::size_t unbounded = 0;   ///< shapes that go on for ever: in no sum
    std::size_t unmeasured = 0;  ///< shapes that the kernel refuses to measure: in no sum

    /// Adds `times` times as much.
    void add(const Measures& other, std::size_t times = 1);
    std::size_t shape_count() const;
};

struct LayerMeasures {
    std::string layer;
    Measures measures;
};

struct SceneMeasures {
    std::vector<LayerMeasures> layers;  ///< those with something on them, by name
    Measures total;
    kernel::Box box;  ///< around everything bounded, millimetres
};

/// Ends of curves that are closer than this (millimetres) belong to one contour.
inline constexpr double kContourGap = 1e-3;

/// Measures a scene: what is hidden is not in it. A contour is a chain of curves of one layer whose ends meet
/// within `gap`, be they polylines or loose lines and arcs; contours are not followed from one block into
/// another. A closed polyline is one contour. Blocks are measured once, however often they are inserted.
SceneMeasures measure(const Scene& scene, double gap = kContourGap);

}  // namespace veltrane
