// The common base of all shared geometry, and points as geometry in their own right.
#pragma once

#include "veltrane/base/ref.hpp"
#include "veltrane/kernel/math/vector.hpp"

namespace veltrane::kernel {

/// Base of points, curves and surfaces. Geometry never changes once built; it is shared by Ref.
class Geometry : public Typed<Geometry, Transient> {
public:
    static constexpr const char* kTypeName = "Geometry";
};

/// A point that stands alone, neither on a curve nor at a vertex.
class FreePoint : public Typed<FreePoint, Geometry> {
public:
    static constexpr const char* kTypeName = "FreePoint";
    explicit FreePoint(const Point& point) : point_(point) {}
    const Point& point() const { return point_; }

private:
    Point point_;
};

class FreePoint2 : public Typed<FreePoint2, Geometry> {
public:
    static constexpr const char* kTypeName = "FreePoint2";
    explicit FreePoint2(const Point2& point) : point_(point) {}
    const Point2& point() const { return point_; }

private:
    Point2 point_;
};

}  // namespace veltrane::kernel
