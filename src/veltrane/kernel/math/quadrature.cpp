#include "veltrane/kernel/math/quadrature.hpp"

#include <cmath>
#include <limits>
#include <queue>

namespace veltrane::kernel {

namespace {

// Nodes of the 15-point Kronrod rule on [-1, 1] (positive half); every second one, from the second on,
// belongs to the 7-point Gauss rule.
constexpr double kNodes[8] = {0.991455371120812639206854697526329, 0.949107912342758524526189684047851,
                              0.864864423359769072789712788640926, 0.741531185599394439863864773280788,
                              0.586087235467691130294144691693,    0.405845151377397166906606412076961,
                              0.207784955007898467600689403773245, 0.0};
constexpr double kKronrod[8] = {0.022935322010529224963732008058970, 0.063092092629978553290700663189204,
                                0.104790010322250183839876322541518, 0.140653259715525918745189590510238,
                                0.169004726639267902826583426598550, 0.190350578064785409913256402421014,
                                0.204432940075298892414161999234649, 0.209482141084727828012999174891714};
constexpr double kGauss[4] = {0.129484966168869693270611432679082, 0.279705391489276667901467771423780,
                              0.381830050505118944950369775488975, 0.417959183673469387755102040816327};

struct Piece {
    Interval interval;
    double value;
    double error;
    friend bool operator<(const Piece& a, const Piece& b) { return a.error < b.error; }
};

Piece measure(const std::function<double(double)>& f, const Interval& interval) {
    const double centre = interval.middle();
    const double half = interval.length() / 2;
    double values[15];
    values[7] = f(centre);
    double kronrod = kKronrod[7] * values[7];
    double gauss = kGauss[3] * values[7];
    double absolute = kKronrod[7] * std::abs(values[7]);
    for (int i = 0; i < 7; ++i) {
        const double below = values[i] = f(centre - half * kNodes[i]);
        const double above = values[14 - i] = f(centre + half * kNodes[i]);
        kronrod += kKronrod[i] * (below + above);
        absolute += kKronrod[i] * (std::abs(below) + std::abs(above));
        if (i % 2 == 1) gauss += kGauss[i / 2] * (below + above);
    }
    double spread = 0;  // mean deviation from the mean value
    for (int i = 0; i < 15; ++i) {
        spread += kKronrod[i < 8 ? i : 14 - i] * std::abs(values[i] - kronrod / 2);
    }
    double error = std::abs(kronrod - gauss);
    if (spread > 0 && error > 0) error = spread * std::min(1.0, std::pow(200 * error / spread, 1.5));
    if (error < 50 * std::numeric_limits<double>::epsilon() * absolute) error = 0;  // only rounding is left
    if (!std::isfinite(error)) error = 0;  // no amount of halving mends this
    return {interval, kronrod * half, error * std::abs(half)};
}

}  // namespace

Integral integrate(const std::function<double(double)>& f, const Interval& interval, double relative,
                   int max_pieces) {
    std::priority_queue<Piece> pieces;
    Piece whole = measure(f, interval);
    Integral sum{whole.value, whole.error};
    pieces.push(whole);
    for (int count = 1; count < max_pieces && sum.error > relative * std::abs(sum.value); ++count) {
        const Piece worst = pieces.top();
        const double middle = worst.interval.middle();
        if (!(worst.error > 0) || middle == worst.interval.first || middle == worst.interval.last) break;
        pieces.pop();
        const Piece left = measure(f, {worst.interval.first, middle});
        const Piece right = measure(f, {middle, worst.interval.last});
        sum.value += left.value + right.value - worst.value;
        sum.error += left.error + right.error - worst.error;
        pieces.push(left);
        pieces.push(right);
    }
    if (pieces.size() == 1) return sum;
    // The running sums carry the rounding of every step; add up afresh.
    sum = {};
    for (; !pieces.empty(); pieces.pop()) {
        sum.value += pieces.top().value;
        sum.error += pieces.top().error;
    }
    return sum;
}

}  // namespace veltrane::kernel
