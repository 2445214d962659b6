// Curves and surfaces of every kind, for tests of properties.
#pragma once

#include "veltrane/kernel/geom/bspline_convert.hpp"
#include "veltrane/kernel/geom/bspline_surface.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/cylinder.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/linear_extrusion.hpp"
#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"

#include <cstdint>
#include <string>

namespace veltrane::kernel::samples {

/// Repeatable numbers in [low, high).
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed * 2862933555777941757ULL + 3037000493ULL) {}
    double operator()(double low, double high) {
        state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return low + (high - low) * static_cast<double>(state_ >> 11) * 0x1p-53;
    }
    Point point(double size = 10) {
        const double x = (*this)(-size, size), y = (*this)(-size, size);
        return {x, y, (*this)(-size, size)};
    }

private:
    std::uint64_t state_;
};

inline BSplineData spline_data(int degree, std::vector<double> knots, std::vector<int> multiplicities,
                               bool rational, bool periodic, int seed = 1) {
    Random random(static_cast<std::uint64_t>(seed));
    BSplineData data{degree, {}, {}, std::move(knots), std::move(multiplicities), periodic};
    int count = periodic ? -data.multiplicities.back() : -degree - 1;
    for (const int m : data.multiplicities) count += m;
    for (int i = 0; i < count; ++i) data.poles.push_back(random.point());
    for (int i = 0; rational && i < count; ++i) data.weights.push_back(random(0.5, 2));
    return data;
}

struct NamedCurve {
    std::string name;
    Ref<Curve> curve;
};

inline std::vector<NamedCurve> make_splines() {
    std::vector<NamedCurve> result;
    const auto add = [&](const char* name, BSplineData data) {
        result.push_back({name, make<BSplineCurve>(std::move(data))});
    };
    add("polyline", spline_data(1, {0, 1, 2.5, 3}, {2, 1, 1, 2}, false, false));
    add("cubic", spline_data(3, {0, 1, 2, 4}, {4, 1, 2, 4}, false, false));
    add("cubic with a corner", spline_data(3, {-1, 1, 2}, {4, 3, 4}, false, false));
    add("rational", spline_data(3, {0, 1, 2, 4}, {4, 1, 2, 4}, true, false));
    add("unclamped",
        spline_data(3, {0, 1, 2, 3, 4.5, 5, 6, 7, 8}, {1, 1, 1, 1, 1, 1, 1, 1, 1}, false, false));
    add("half clamped", spline_data(2, {0, 1, 2, 3, 4.5}, {2, 1, 2, 1, 1}, true, false));
    add("overhanging", spline_data(3, {0, 1, 2, 3, 4, 5, 6}, {1, 3, 1, 1, 2, 1, 2}, true, false));
    add("periodic", spline_data(3, {0, 1, 2, 4, 5, 6, 7}, {1, 1, 1, 1, 1, 1, 1}, false, true));
    add("periodic double", spline_data(3, {1, 2, 4, 5, 7}, {2, 1, 2, 1, 2}, true, true));
    add("small periodic", spline_data(3, {0, 1, 3, 4}, {1, 1, 1, 1}, false, true));
    add("periodic triple", spline_data(3, {0, 1, 3}, {3, 2, 3}, true, true));
    add("high degree", spline_data(9, {0, 0.5, 1}, {10, 3, 10}, false, false));
    return result;
}

/// They live as long as the process: tests keep references to them.
inline const std::vector<NamedCurve>& splines() {
    static const std::vector<NamedCurve> all = make_splines();
    return all;
}

inline Frame tilted_frame() {
    return Frame::from_normal_and_x({1, 2, 3}, {1, -2, 2}, {3, 1, 0});
}

/// Bounded curves.
inline std::vector<NamedCurve> bounded_curves() {
    std::vector<NamedCurve> result = splines();
    const Frame frame = tilted_frame();
    const auto circle = make<Circle>(frame, 2.5);
    const auto ellipse = make<Ellipse>(frame, 5, 2);
    result.push_back({"segment", make_segment({1, 2, 3}, {4, -5, 6})});
    result.push_back({"circle", circle});
    result.push_back({"arc", make<TrimmedCurve>(circle, 5, 1)});
    result.push_back({"ellipse", ellipse});
    result.push_back({"elliptic arc", make<TrimmedCurve>(ellipse, -1.5, 2)});
    result.push_back({"long elliptic arc", make<TrimmedCurve>(ellipse, 1, 0.9)});
    result.push_back({"thin ellipse", make<Ellipse>(frame, 5, 1e-3)});
    result.push_back({"round ellipse", make<Ellipse>(frame, 3, 3)});
    for (const NamedCurve& spline : splines()) {
        const Interval r = spline.curve->range();
        const double shift = spline.curve->is_periodic() ? 0.7 * r.length() : 0;
        result.push_back({"trimmed " + spline.name,
                          make<TrimmedCurve>(spline.curve, r.at(0.2) + shift, r.at(0.85) + shift)});
    }
    return result;
}

inline std::vector<NamedCurve> curves() {
    std::vector<NamedCurve> result = bounded_curves();
    const auto line = make<Line>(Point(1, 2, 3), Vector(1, -1, 2));
    result.push_back({"line", line});
    result.push_back({"ray", make<TrimmedCurve>(line, -2, kInfinite)});
    return result;
}

/// A few parameters inside a range; of an unbounded one, near its middle.
inline std::vector<double> parameters(Interval range, int count = 9) {
    range.first = std::max(range.first, -20.0);
    range.last = std::min(range.last, 20.0);
    std::vector<double> result;
    for (int i = 0; i < count; ++i) result.push_back(range.at((i + 0.37) / count));
    return result;
}

/// Many parameters, corners included.
inline std::vector<double> dense_parameters(const Curve& curve, int count) {
    const std::vector<double> ends = curve.breaks(curve.range());
    std::vector<double> result{ends.front()};
    const int per_piece = count / static_cast<int>(ends.size()) + 1;
    for (std::size_t i = 0; i + 1 < ends.size(); ++i) {
        for (int k = 1; k <= per_piece; ++k) {
            result.push_back(Interval{ends[i], ends[i + 1]}.at(static_cast<double>(k) / per_piece));
        }
    }
    return result;
}

/// Hills and valleys over a rectangle: 7 x 6 poles, degrees 3 and 2.
inline BSplineSurfaceData hilly_data(bool rational) {
    BSplineSurfaceData data{{3, {0, 1, 2, 4, 5}, {4, 1, 1, 1, 4}}, {2, {-1, 0, 1, 3}, {3, 2, 1, 3}}, {}, {}};
    Random random(5);
    for (int i = 0; i < 7; ++i) {
        for (int j = 0; j < 6; ++j) {
            data.poles.emplace_back(3 * i, 2 * j, random(-1, 1));
            if (rational) data.weights.push_back(random(0.7, 1.5));
        }
    }
    return data;
}

struct NamedSurface {
    std::string name;
    Ref<Surface> surface;
};

inline std::vector<NamedSurface> surfaces() {
    Frame left = tilted_frame();
    left.z = -left.z;
    std::vector<NamedSurface> result{
        {"plane", make<Plane>(tilted_frame())},
        {"cylinder", make<Cylinder>(tilted_frame(), 2)},
        {"left-handed cylinder", make<Cylinder>(left, 2)},
        {"B-spline", make<BSplineSurface>(hilly_data(false))},
        {"rational B-spline", make<BSplineSurface>(hilly_data(true))},
    };
    for (const NamedCurve& basis : curves()) {
        result.push_back({"extruded " + basis.name, make<LinearExtrusion>(basis.curve, Vector(0.3, 0.2, 2))});
    }
    return result;
}

struct NamedMap {
    const char* name;
    AffineMap map;
};

inline std::vector<NamedMap> maps() {
    const Point p(3, 4, 5);
    const Vector v(1, -2, 0.5);
    Matrix3 shear = Matrix3::Identity();
    shear(0, 1) = 0.7;
    shear(2, 0) = -0.4;
    return {
        {"rotation", Transform::rotation(p, v, 1.1)},
        {"mirror in plane", Transform::mirror_in_plane(p, v)},
        {"negative scaling", Transform::scaling(p, -2.5)},
        {"unequal scaling", AffineMap::scaling(Frame(), {2, 3, -0.5})},
        {"shear", AffineMap(shear, v)},
    };
}

}  // namespace veltrane::kernel::samples
