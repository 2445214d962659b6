// What of a shape is drawn: free points and edges.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <cstddef>

namespace veltrane {

/// Takes the parts of an outline in world place.
class OutlineSink {
public:
    virtual ~OutlineSink() = default;

    virtual void point(const kernel::Point& point) = 0;
    virtual void segment(const kernel::Point& from, const kernel::Point& to) = 0;
    /// A straight edge that goes on for ever at one end or both.
    virtual void unbounded_line(const kernel::Line& line, const kernel::Interval& range) = 0;
    /// A bounded piece of a curve that is not straight, run through backwards when `is_reversed`.
    virtual void curve(const kernel::Curve& curve, const kernel::Interval& range, bool is_reversed) = 0;
};

/// What became of an outline.
struct OutlineCount {
    std::size_t parts = 0;    ///< handed to the sink
    std::size_t skipped = 0;  ///< refused by the kernel, or unbounded and not straight
    bool is_complete = true;  ///< false when the walk was broken off at the limit
};

/// Hands on the outline of a shape: vertices that stand alone, the edges of wires in their order and sense,
/// and every edge of a face, shell or solid once. Compounds nest to any depth. Because compounds may share
/// their members over and over, the walk is broken off once `count.parts` exceeds `most_parts`.
void outline(const kernel::Shape& shape, std::size_t most_parts, OutlineSink& sink, OutlineCount& count);

}  // namespace veltrane
