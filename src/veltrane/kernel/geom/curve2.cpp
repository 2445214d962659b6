#include "veltrane/kernel/geom/curve2.hpp"

#include "veltrane/kernel/geom/bspline_curve.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

namespace {

bool lies_flat(const Frame& frame) {
    return frame.origin.z() == 0 && frame.x.z() == 0 && frame.y.z() == 0;
}

bool lies_in_plane(const Curve& curve) {
    switch (curve.kind()) {
        case CurveKind::Line: {
            const Line& line = static_cast<const Line&>(curve);
            return line.origin().z() == 0 && line.direction().z() == 0;
        }
        case CurveKind::Circle:
            return lies_flat(static_cast<const Circle&>(curve).frame());
        case CurveKind::Ellipse:
            return lies_flat(static_cast<const Ellipse&>(curve).frame());
        case CurveKind::BSpline: {
            const auto& poles = static_cast<const BSplineCurve&>(curve).poles();
            return std::all_of(poles.begin(), poles.end(), [](const Point& p) { return p.z() == 0; });
        }
        case CurveKind::Trimmed:
            return lies_in_plane(*static_cast<const TrimmedCurve&>(curve).basis());
    }
    return false;
}

Point in_space(const Point2& p) {
    return {p.x(), p.y(), 0};
}

Vector axis_of_plane(bool counter_clockwise) {
    return {0, 0, counter_clockwise ? 1.0 : -1.0};
}

}  // namespace

Curve2::Curve2(const Ref<Curve>& in_plane) : curve_(in_plane) {
    if (!curve_ || !lies_in_plane(*curve_)) throw KernelError("A curve does not lie in the plane z = 0");
}

Curve2Derivatives Curve2::derivatives(double t) const {
    const CurveDerivatives d = curve_->derivatives(t);
    return {d.point.head<2>(), d.first.head<2>(), d.second.head<2>()};
}

Ref<Curve> Curve2::placed(const Frame& frame) const {
    return curve_->transformed(Transform::from_frame(frame));
}

Ref<Curve2> Curve2::mapped(const AffineMap2& map, ParameterMap* parameters) const {
    const MappedCurve image = curve_->map_curve(map.in_space());
    if (parameters) *parameters = image.parameters;
    return make<Curve2>(image.curve);
}

Ref<Curve2> Curve2::reversed() const {
    return make<Curve2>(curve_->reversed());
}

Ref<Curve2> make_line2(const Point2& origin, const Vector2& direction) {
    return make<Curve2>(make<Line>(in_space(origin), in_space(direction)));
}

Ref<Curve2> make_segment2(const Point2& a, const Point2& b) {
    const double length = (b - a).norm();
    if (!(length > 0)) throw KernelError("The ends of a segment coincide");
    return make<Curve2>(make<TrimmedCurve>(make<Line>(in_space(a), in_space(b - a)), 0, length));
}

Ref<Curve2> make_circle2(const Point2& centre, double radius, bool counter_clockwise) {
    const Frame frame =
        Frame::from_normal_and_x(in_space(centre), axis_of_plane(counter_clockwise), Vector::UnitX());
    return make<Curve2>(make<Circle>(frame, radius));
}

Ref<Curve2> make_ellipse2(const Point2& centre, const Vector2& major_axis, double ratio,
                          bool counter_clockwise) {
    const Frame frame =
        Frame::from_normal_and_x(in_space(centre), axis_of_plane(counter_clockwise), in_space(major_axis));
    const double major = major_axis.norm();
    return make<Curve2>(make<Ellipse>(frame, major, ratio * major));
}

Ref<Curve2> trim(const Curve2& curve, double first, double last) {
    return make<Curve2>(make<TrimmedCurve>(curve.in_plane(), first, last));
}

}  // namespace veltrane::kernel
