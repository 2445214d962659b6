#include "veltrane/kernel/math/predicates.hpp"

#include <cmath>
#include <limits>
#include <vector>

namespace veltrane::kernel {

namespace {

// The bounds of the paper's first stage, for differences taken before the products.
constexpr double kRounding = std::numeric_limits<double>::epsilon() / 2;
constexpr double kOrientationBound = (3 + 16 * kRounding) * kRounding;
constexpr double kCircleBound = (10 + 96 * kRounding) * kRounding;

int sign(double value) {
    return (value > 0) - (value < 0);
}

/// A number as the exact sum of doubles that do not overlap, the smallest first.
using Expansion = std::vector<double>;

void append_if_not_zero(Expansion& e, double value) {
    if (value != 0) e.push_back(value);
}

/// e + b.
Expansion sum(const Expansion& e, double b) {
    Expansion result;
    result.reserve(e.size() + 1);
    for (const double part : e) {
        const double total = b + part;
        const double part_in_total = total - b;
        append_if_not_zero(result, (b - (total - part_in_total)) + (part - part_in_total));
        b = total;
    }
    append_if_not_zero(result, b);
    return result;
}

Expansion sum(Expansion e, const Expansion& f) {
    for (const double part : f) e = sum(e, part);
    return e;
}

Expansion scaled(const Expansion& e, double factor) {
    Expansion result;
    for (const double part : e) {
        const double product = part * factor;
        result = sum(sum(result, std::fma(part, factor, -product)), product);
    }
    return result;
}

Expansion product(double a, double b) {
    return scaled({a}, b);
}

Expansion difference(const Expansion& e, const Expansion& f) {
    return sum(e, scaled(f, -1));
}

/// a.x b.y - b.x a.y.
Expansion exact_cross(const Point2& a, const Point2& b) {
    return difference(product(a.x(), b.y()), product(b.x(), a.y()));
}

/// Twice the signed area of the triangle.
Expansion exact_area(const Point2& a, const Point2& b, const Point2& c) {
    return sum(sum(exact_cross(a, b), exact_cross(b, c)), exact_cross(c, a));
}

/// The expansion times the squared distance of `p` from the origin.
Expansion lifted(const Expansion& e, const Point2& p) {
    return sum(scaled(scaled(e, p.x()), p.x()), scaled(scaled(e, p.y()), p.y()));
}

int sign(const Expansion& e) {
    return e.empty() ? 0 : sign(e.back());
}

int exact_in_circle(const Point2& a, const Point2& b, const Point2& c, const Point2& d) {
    const Expansion with_a = lifted(exact_area(b, c, d), a);
    const Expansion with_b = lifted(exact_area(a, c, d), b);
    const Expansion with_c = lifted(exact_area(a, b, d), c);
    const Expansion with_d = lifted(exact_area(a, b, c), d);
    return sign(difference(sum(with_a, with_c), sum(with_b, with_d)));
}

}  // namespace

int orientation(const Point2& a, const Point2& b, const Point2& c) {
    const double left = (a.x() - c.x()) * (b.y() - c.y());
    const double right = (a.y() - c.y()) * (b.x() - c.x());
    const double area = left - right;
    if (std::abs(area) > kOrientationBound * (std::abs(left) + std::abs(right))) return sign(area);
    return sign(exact_area(a, b, c));
}

int in_circle(const Point2& a, const Point2& b, const Point2& c, const Point2& d) {
    const Vector2 p = a - d, q = b - d, r = c - d;
    const double qr = q.x() * r.y(), rq = r.x() * q.y();
    const double rp = r.x() * p.y(), pr = p.x() * r.y();
    const double pq = p.x() * q.y(), qp = q.x() * p.y();
    const double pp = p.squaredNorm(), qq = q.squaredNorm(), rr = r.squaredNorm();
    const double value = pp * (qr - rq) + qq * (rp - pr) + rr * (pq - qp);
    const double size = pp * (std::abs(qr) + std::abs(rq)) + qq * (std::abs(rp) + std::abs(pr)) +
                        rr * (std::abs(pq) + std::abs(qp));
    if (std::abs(value) > kCircleBound * size) return sign(value);
    return exact_in_circle(a, b, c, d);
}

}  // namespace veltrane::kernel
