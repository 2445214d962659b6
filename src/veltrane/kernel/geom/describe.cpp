#include "veltrane/kernel/geom/describe.hpp"

#include "veltrane/kernel/geom/bspline_curve.hpp"
#include "veltrane/kernel/geom/bspline_surface.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/cylinder.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/linear_extrusion.hpp"
#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"

#include <charconv>

namespace veltrane::kernel {

namespace {

std::string number(double value) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value == 0 ? 0.0 : value).ptr;
    return std::string(buffer, end);
}

std::string describe_conic(const char* name, const Frame& frame) {
    return std::string(name) + " centre " + describe(frame.origin) + " axis " + describe(frame.z);
}

std::string describe_bspline(const BSplineCurve& curve) {
    std::string text = curve.is_periodic() ? "periodic " : "";
    if (curve.is_rational()) text += "rational ";
    return text + "B-spline degree " + std::to_string(curve.degree()) + " poles " +
           std::to_string(curve.poles().size()) + " from " + describe(curve.start()) + " to " +
           describe(curve.end());
}

std::string describe_bspline(const BSplineSurface& surface) {
    const auto by = [](auto u, auto v) { return std::to_string(u) + " x " + std::to_string(v); };
    const Interval u = surface.u_range(), v = surface.v_range();
    return std::string(surface.is_rational() ? "rational " : "") + "B-spline surface degree " +
           by(surface.axis_u().degree, surface.axis_v().degree) + " poles " +
           by(surface.pole_count_u(), surface.pole_count_v()) + " from " +
           describe(surface.value(u.first, v.first)) + " to " + describe(surface.value(u.last, v.last));
}

}  // namespace

std::string describe(const Point& point) {
    return "(" + number(point.x()) + " " + number(point.y()) + " " + number(point.z()) + ")";
}

std::string describe(const Curve& curve) {
    switch (curve.kind()) {
        case CurveKind::Line: {
            const Line& line = static_cast<const Line&>(curve);
            return "line through " + describe(line.origin()) + " along " + describe(line.direction());
        }
        case CurveKind::Circle: {
            const Circle& circle = static_cast<const Circle&>(curve);
            return describe_conic("circle", circle.frame()) + " radius " + number(circle.radius());
        }
        case CurveKind::Ellipse: {
            const Ellipse& ellipse = static_cast<const Ellipse&>(curve);
            return describe_conic("ellipse", ellipse.frame()) + " major " +
                   describe(Point(ellipse.major_radius() * ellipse.frame().x)) + " minor " +
                   number(ellipse.minor_radius());
        }
        case CurveKind::BSpline:
            return describe_bspline(static_cast<const BSplineCurve&>(curve));
        case CurveKind::Trimmed: {
            const TrimmedCurve& trimmed = static_cast<const TrimmedCurve&>(curve);
            return describe(*trimmed.basis()) + " over [" + number(trimmed.first()) + " " +
                   number(trimmed.last()) + "]";
        }
    }
    return {};
}

std::string describe(const Curve2& curve) {
    return describe(*curve.in_plane());
}

std::string describe(const Surface& surface) {
    switch (surface.kind()) {
        case SurfaceKind::Plane: {
            const Plane& plane = static_cast<const Plane&>(surface);
            return "plane through " + describe(plane.frame().origin) + " normal " + describe(plane.normal());
        }
        case SurfaceKind::Cylinder: {
            const Cylinder& cylinder = static_cast<const Cylinder&>(surface);
            return "cylinder through " + describe(cylinder.frame().origin) + " axis " +
                   describe(cylinder.frame().z) + " radius " + number(cylinder.radius());
        }
        case SurfaceKind::LinearExtrusion: {
            const LinearExtrusion& extrusion = static_cast<const LinearExtrusion&>(surface);
            return "extrusion along " + describe(extrusion.direction()) + " of " +
                   describe(*extrusion.basis());
        }
        case SurfaceKind::BSpline:
            return describe_bspline(static_cast<const BSplineSurface&>(surface));
    }
    return {};
}

}  // namespace veltrane::kernel
