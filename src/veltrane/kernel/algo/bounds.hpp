// The box around a shape.
#pragma once

#include "veltrane/kernel/math/box.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <unordered_map>

namespace veltrane::kernel {

/// The smallest box with sides along the world axes that holds the shape where it stands, without any margin
/// for tolerances. It is open where the shape is unbounded and empty for a shape without geometry. Curves are
/// boxed where they stand, so that a turned circle has a tight box too. Faces are exact for surfaces with
/// straight rulings along v (planes, cylinders, cones, extrusions). A face on a B-spline surface is boxed
/// over the rectangle of parameters that its loops span, within 1e-7 of the size.
Box bounding_box(const Shape& shape);

/// The box around many shapes, as tight as bounding_box() makes it. Copies of one compound cost little: they
/// are looked at only where they may reach beyond what is boxed already.
class BoxSum {
public:
    /// Adds a bounded shape; false for one that is not, which is left out.
    bool add(const Shape& shape);
    const Box& box() const { return box_; }

private:
    /// A box that the shape does not reach beyond.
    Box loose_box(const Shape& shape);

    struct OwnBox {
        Ref<const Definition> compound;  // so that its address stays its own
        Box box;                         // where the compound is not moved
    };
    std::unordered_map<const Definition*, OwnBox> known_;
    Box box_;
};

}  // namespace veltrane::kernel
