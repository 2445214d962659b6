#include "veltrane/kernel/math/predicates.hpp"

#include <array>
#include <cmath>
#include <limits>

namespace veltrane::kernel {

namespace {

// The bounds of the paper's first stage, for differences taken before the products.
constexpr double kRounding = std::numeric_limits<double>::epsilon() / 2;
constexpr double kOrientationBound = (3 + 16 * kRounding) * kRounding;
constexpr double kCircleBound = (10 + 96 * kRounding) * kRounding;

int sign(double value) {
    return (value > 0) - (value < 0);
}

/// A number as the exact sum of doubles that do not overlap, the smallest first, without zeros. The greatest
/// that occurs here has 384 parts.
struct Expansion {
    int size = 0;
    std::array<double, 384> parts;

    Expansion() {}  // most parts are never looked at
    explicit Expansion(double value) { append(value); }
    void append(double value) {
        if (value != 0) parts[size++] = value;
    }
};

struct Two {
    double value, error;
};

Two two_sum(double a, double b) {
    const double value = a + b, b_part = value - a;
    return {value, (a - (value - b_part)) + (b - b_part)};
}

Two two_product(double a, double b) {
    const double value = a * b;
    return {value, std::fma(a, b, -value)};
}

/// Fast-Expansion-Sum of the paper.
Expansion sum(const Expansion& e, const Expansion& f) {
    Expansion result;
    int i = 0, j = 0;
    const auto next = [&] {
        const bool from_e = j == f.size || (i < e.size && std::abs(e.parts[i]) < std::abs(f.parts[j]));
        return from_e ? e.parts[i++] : f.parts[j++];
    };
    double total = 0;
    while (i < e.size || j < f.size) {
        const Two step = two_sum(total, next());
        result.append(step.error);
        total = step.value;
    }
    result.append(total);
    return result;
}

/// Scale-Expansion of the paper.
Expansion scaled(const Expansion& e, double factor) {
    Expansion result;
    double total = 0;
    for (int i = 0; i < e.size; ++i) {
        const Two product = two_product(e.parts[i], factor);
        const Two low = two_sum(total, product.error);
        const Two high = two_sum(product.value, low.value);
        result.append(low.error);
        result.append(high.error);
        total = high.value;
    }
    result.append(total);
    return result;
}

Expansion product(double a, double b) {
    return scaled(Expansion(a), b);
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
    return e.size == 0 ? 0 : sign(e.parts[e.size - 1]);
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
