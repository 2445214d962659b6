#include "veltrane/kernel/math/bernstein.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace veltrane::kernel {

namespace {

int degree_of(const Bernstein& p) {
    return static_cast<int>(p.size()) - 1;
}

/// Row n of Pascal's triangle.
std::vector<double> binomials(int n) {
    std::vector<double> row(n + 1, 1.0);
    for (int k = 1; k < n; ++k) row[k] = row[k - 1] * (n - k + 1) / k;
    return row;
}

int sign_changes(const Bernstein& p) {
    int changes = 0;
    double last = 0;
    for (const double b : p) {
        if (b == 0) continue;
        if (last != 0 && (b > 0) != (last > 0)) ++changes;
        last = b;
    }
    return changes;
}

/// Cuts at 1/2 by de Casteljau's algorithm: p becomes the right half, the left half is returned.
Bernstein cut(Bernstein& p) {
    Bernstein left(p.size());
    const int n = degree_of(p);
    for (int level = 0; level <= n; ++level) {
        left[level] = p[0];
        for (int i = 0; i < n - level; ++i) p[i] = (p[i] + p[i + 1]) / 2;
    }
    return left;
}

/// The root in [0, 1] of a polynomial whose end values have opposite signs. Regula falsi with the
/// Illinois weighting, and a bisection whenever that fails to halve the bracket.
double bracketed_root(const Bernstein& p) {
    double low = 0, high = 1;
    double at_low = p.front(), at_high = p.back();
    for (int step = 0; step < 120 && high - low > 1e-16 * high; ++step) {
        const double width = high - low;
        double u = low - at_low * width / (at_high - at_low);
        if (step % 3 == 2 || !(u > low && u < high)) u = low + width / 2;
        if (u == low || u == high) break;
        const double value = evaluate(p, u);
        if (value == 0) return u;
        if ((value > 0) == (at_low > 0)) {
            low = u;
            at_low = value;
            at_high /= 2;
        } else {
            high = u;
            at_high = value;
            at_low /= 2;
        }
    }
    return low + (high - low) / 2;
}

}  // namespace

double evaluate(const Bernstein& p, double u) {
    // Horner's scheme in u / (1 - u), as in Farin's "Curves and Surfaces for CAGD": linear time.
    const int n = degree_of(p);
    if (n < 0) return 0;
    const double v = 1 - u;
    double power = 1;
    double binomial = 1;
    double sum = p[0] * v;
    if (n == 0) return p[0];
    for (int i = 1; i < n; ++i) {
        power *= u;
        binomial = binomial * (n - i + 1) / i;
        sum = (sum + power * binomial * p[i]) * v;
    }
    return sum + power * u * p[n];
}

Bernstein derivative(const Bernstein& p) {
    const int n = degree_of(p);
    if (n < 1) return {};
    Bernstein result(n);
    for (int i = 0; i < n; ++i) result[i] = n * (p[i + 1] - p[i]);
    return result;
}

Bernstein multiply(const Bernstein& p, const Bernstein& q) {
    if (p.empty() || q.empty()) return {};
    const int m = degree_of(p), n = degree_of(q);
    const auto row_m = binomials(m), row_n = binomials(n), row = binomials(m + n);
    Bernstein result(m + n + 1, 0.0);
    for (int i = 0; i <= m; ++i) {
        for (int j = 0; j <= n; ++j) result[i + j] += row_m[i] * row_n[j] / row[i + j] * p[i] * q[j];
    }
    return result;
}

Bernstein add(const Bernstein& p, const Bernstein& q, double factor) {
    const int degree = std::max(degree_of(p), degree_of(q));
    Bernstein result = elevate(p, degree);
    const Bernstein other = elevate(q, degree);
    for (std::size_t i = 0; i < result.size(); ++i) result[i] += factor * other[i];
    return result;
}

Bernstein elevate(const Bernstein& p, int degree) {
    if (p.empty()) return Bernstein(std::max(degree + 1, 0), 0.0);
    Bernstein result = p;
    while (degree_of(result) < degree) {
        const int n = degree_of(result) + 1;
        result.push_back(result.back());
        for (int i = n - 1; i > 0; --i) {
            const double share = static_cast<double>(i) / n;
            result[i] = share * result[i - 1] + (1 - share) * result[i];
        }
    }
    return result;
}

std::vector<double> roots(const Bernstein& p) {
    for (const double b : p) {
        if (!std::isfinite(b)) return {};
    }
    // The number of sign changes of the coefficients bounds the number of roots, and all pieces of one
    // depth together never have more of them than the whole: so the stack stays small.
    struct Piece {
        Bernstein polynomial;
        double first, width;
    };
    constexpr double kNarrow = 1e-15;
    std::vector<double> found;
    std::vector<Piece> stack;
    stack.push_back({p, 0, 1});
    while (!stack.empty()) {
        Piece piece = std::move(stack.back());
        stack.pop_back();
        const Bernstein& b = piece.polynomial;
        const int changes = sign_changes(b);
        if (b.empty() || std::all_of(b.begin(), b.end(), [](double x) { return x == 0; })) continue;
        if (b.front() == 0) found.push_back(piece.first);
        if (b.back() == 0) found.push_back(piece.first + piece.width);
        if (changes == 0) continue;
        if (piece.width < kNarrow) {
            found.push_back(piece.first + piece.width / 2);
        } else if (changes == 1 && b.front() != 0 && b.back() != 0) {
            found.push_back(piece.first + piece.width * bracketed_root(b));
        } else {
            const double half = piece.width / 2;
            Bernstein left = cut(piece.polynomial);
            stack.push_back({std::move(piece.polynomial), piece.first + half, half});
            stack.push_back({std::move(left), piece.first, half});
        }
    }
    std::sort(found.begin(), found.end());
    found.erase(
        std::unique(found.begin(), found.end(), [](double a, double b) { return b - a < 2 * kNarrow; }),
        found.end());
    return found;
}

}  // namespace veltrane::kernel
