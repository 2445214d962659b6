// Sizes of shapes and their first moments: what centres are made of.
#pragma once

#include "veltrane/kernel/math/transform.hpp"
#include "veltrane/kernel/topo/shape.hpp"

namespace veltrane::kernel {

/// Length, area or volume, and the integral of the position over it.
struct Moments {
    double size = 0;
    Vector first = Vector::Zero();

    Moments& operator+=(const Moments& other) {
        size += other.size;
        first += other.first;
        return *this;
    }
};

/// Moments with positions relative to `about` brought to where the origin is: positions p become p + about.
inline Moments shifted(const Moments& moments, const Vector& about) {
    return {moments.size, moments.first + moments.size * about};
}
/// The moments of the moved figure. The motion must be rigid.
inline Moments moved(const Moments& moments, const Transform& motion) {
    return {moments.size, motion.vector(moments.first) + moments.size * motion.translation_part()};
}

/// Of an edge, by length; positions relative to `about`. Throws KernelError for an unbounded edge.
Moments length_moments(const Shape& edge, const Point& about);
/// Of a face, by area. Throws KernelError for an unbounded face.
Moments area_moments(const Shape& face, const Point& about);
/// Of the cone from `about` to a face: the volume is positive where the face looks away from there. The cones
/// of the faces of a closed shell make up the inside. Throws KernelError for an unbounded face.
Moments cone_moments(const Shape& face, const Point& about);

/// A point of a shape, to measure about so that far shapes lose no digits; the origin when it has no vertex.
Point some_point(const Shape& shape);

}  // namespace veltrane::kernel
