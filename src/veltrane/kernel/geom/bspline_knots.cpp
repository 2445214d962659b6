#include "veltrane/kernel/geom/bspline_knots.hpp"

#include "veltrane/kernel/geom/bspline_eval.hpp"
#include "veltrane/kernel/math/box.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <Eigen/QR>
#include <algorithm>

namespace veltrane::kernel {

namespace {

/// The tolerance for homogeneous poles that keeps the curve itself within `tolerance` (the NURBS Book,
/// equation 5.30).
double homogeneous_tolerance(const BSplineData& data, double tolerance) {
    if (data.weights.empty()) return tolerance;
    double farthest = 0;
    for (const Point& pole : data.poles) farthest = std::max(farthest, pole.norm());
    return tolerance * *std::min_element(data.weights.begin(), data.weights.end()) / (1 + farthest);
}

/// Takes one copy of a knot out of a curve that is not periodic (algorithm A5.8, one removal): `last` is
/// the place of its last copy, `multiplicity` the number of copies. False when the poles would move by
/// more than `tolerance`.
bool remove_copy(FlatSpline& curve, int last, int multiplicity, double tolerance) {
    const int p = curve.degree;
    const double knot = curve.knots[last];
    const int first_pole = last - p;
    const int last_pole = last - multiplicity;
    const auto& u = curve.knots;
    const auto& old = curve.poles;
    if (first_pole < 1 || last_pole + 1 >= curve.count()) return false;
    // New poles from both ends; they meet in the middle.
    std::vector<HomogeneousPoint> left{old[first_pole - 1]};
    std::vector<HomogeneousPoint> right{old[last_pole + 1]};
    int i = first_pole, j = last_pole;
    for (; j > i; ++i, --j) {
        const double alpha_i = (knot - u[i]) / (u[i + p + 1] - u[i]);
        const double alpha_j = (knot - u[j]) / (u[j + p + 1] - u[j]);
        left.push_back((old[i] - (1 - alpha_i) * left.back()) / alpha_i);
        right.push_back((old[j] - alpha_j * right.back()) / (1 - alpha_j));
    }
    if (j < i) {
        if (!((left.back() - right.back()).norm() <= tolerance)) return false;
        // Both ends reached the same pole: share the difference.
        left.back() = (left.back() + right.back()) / 2;
        right.pop_back();
    } else {
        const double alpha = (knot - u[i]) / (u[i + p + 1] - u[i]);
        const HomogeneousPoint again = alpha * right.back() + (1 - alpha) * left.back();
        if (!((old[i] - again).norm() <= tolerance)) return false;
    }
    left.insert(left.end(), right.rbegin(), right.rend());
    auto& poles = curve.poles;
    std::copy(left.begin(), left.end(), poles.begin() + first_pole - 1);
    poles.erase(poles.begin() + last_pole + 1);
    curve.knots.erase(curve.knots.begin() + last);
    return true;
}

BSplineData with_multiplicity(const BSplineData& data, int index, int multiplicity) {
    BSplineData result = data;
    if (multiplicity == 0) {
        result.knots.erase(result.knots.begin() + index);
        result.multiplicities.erase(result.multiplicities.begin() + index);
        return result;
    }
    result.multiplicities[index] = multiplicity;
    if (data.periodic && index == 0) result.multiplicities.back() = multiplicity;
    return result;
}

/// `count` poles of a periodic curve for the finer knots of `target`.
std::vector<HomogeneousPoint> refined_periodic(const BSplineData& source, const BSplineData& target,
                                               int count) {
    // The first `degree` poles reach back before the seam and the last ones beyond it: a second turn of
    // the source gives each of them its span, and the first ones are taken from their repetitions.
    const std::vector<HomogeneousPoint> refined = refined_poles(write_out(source, 2), flat_knots(target));
    std::vector<HomogeneousPoint> poles(count);
    for (int i = target.degree; i < target.degree + count; ++i) poles[i % count] = refined[i];
    return poles;
}

bool remove_copy_open(BSplineData& data, int index, double tolerance) {
    FlatSpline curve = write_out(data);
    int last = -1;
    for (int i = 0; i <= index; ++i) last += data.multiplicities[i];
    const int multiplicity = data.multiplicities[index];
    if (!remove_copy(curve, last, multiplicity, tolerance)) return false;
    data = with_multiplicity(data, index, multiplicity - 1);
    set_homogeneous(data, curve.poles);
    return true;
}

/// A periodic curve with so few poles that a removal overlaps itself: the poles whose refinement comes
/// nearest to the old ones, by least squares.
bool remove_copy_by_fit(BSplineData& data, int index, double tolerance) {
    BSplineData lower = with_multiplicity(data, index, data.multiplicities[index] - 1);
    const int count = static_cast<int>(data.poles.size());
    if (count < 3) return false;
    lower.poles.assign(count - 1, Point::Zero());
    lower.weights.clear();
    Eigen::MatrixXd insertion(count, count - 1);
    for (int column = 0; column < count - 1; ++column) {
        lower.poles[column].x() = 1;
        const auto response = refined_periodic(lower, data, count);
        for (int row = 0; row < count; ++row) insertion(row, column) = response[row][0];
        lower.poles[column].x() = 0;
    }
    const std::vector<HomogeneousPoint> old = homogeneous_poles(data);
    Eigen::MatrixXd right(count, 4);
    for (int row = 0; row < count; ++row) right.row(row) = old[row].transpose();
    const Eigen::MatrixXd fit = insertion.colPivHouseholderQr().solve(right);
    if (!((insertion * fit - right).rowwise().norm().maxCoeff() <= tolerance)) return false;
    std::vector<HomogeneousPoint> poles(count - 1);
    for (int row = 0; row < count - 1; ++row) poles[row] = fit.row(row).transpose();
    lower.weights.assign(data.weights.empty() ? 0 : count - 1, 1.0);
    set_homogeneous(lower, poles);
    data = std::move(lower);
    return true;
}

/// Three turns are written out and the knot is removed from the middle one, where the change sees
/// nothing of the ends.
bool remove_copy_periodic(BSplineData& data, int index, double tolerance) {
    const int count = static_cast<int>(data.poles.size());
    const int p = data.degree;
    const int multiplicity = data.multiplicities[index];
    if (count < p + multiplicity - 1 || count <= p + 1) return remove_copy_by_fit(data, index, tolerance);
    FlatSpline curve = write_out(data, 3);
    int last = p + count;  // the last copy of the first knot, one turn on
    for (int i = 1; i <= index; ++i) last += data.multiplicities[i];
    if (!remove_copy(curve, last, multiplicity, tolerance)) return false;
    data = with_multiplicity(data, index, multiplicity - 1);
    // A window of one turn in which the written-out curve and the new periodic one have the same knots.
    // Both count their poles alike, but for a removal between the seam and the window.
    const int window = last - multiplicity - p + 1;
    const int offset = index == 0 ? 0 : 1;
    std::vector<HomogeneousPoint> poles(count - 1);
    for (int i = window; i < window + count - 1; ++i) poles[(i - offset) % (count - 1)] = curve.poles[i];
    set_homogeneous(data, poles);
    return true;
}

/// Place among the flat knots of the first copy of an interior knot; the poles of the curve count from
/// the same origin.
int first_copy(const BSplineData& data, int index) {
    int place = data.periodic ? data.degree + 1 : data.multiplicities.front();
    for (int i = 1; i < index; ++i) place += data.multiplicities[i];
    return place;
}

/// Poles between two pieces of the curve that no point depends on: those of a multiplicity beyond
/// degree + 1, which becomes degree + 1.
void drop_idle_poles(BSplineData& data, int index) {
    const int place = first_copy(data, index);
    const int idle = data.multiplicities[index] - data.degree - 1;
    data.poles.erase(data.poles.begin() + place, data.poles.begin() + place + idle);
    if (!data.weights.empty()) {
        data.weights.erase(data.weights.begin() + place, data.weights.begin() + place + idle);
    }
    data.multiplicities[index] = data.degree + 1;
}

/// Whether the poles may become one: closer than the tolerance, and their weights so close that the
/// curve, which feels a weight by the extent of the neighbouring poles, does not move farther.
bool ends_meet(const BSplineData& data, int before, int after, double tolerance) {
    const Point& end = data.poles[before];
    if (!(distance(end, data.poles[after]) <= tolerance)) return false;
    if (data.weights.empty()) return true;
    double extent = 0;
    const int last = std::min(after + data.degree, static_cast<int>(data.poles.size()) - 1);
    for (int i = std::max(before - data.degree, 0); i <= before; ++i) {
        extent = std::max(extent, distance(end, data.poles[i]));
    }
    for (int i = after; i <= last; ++i) extent = std::max(extent, distance(end, data.poles[i]));
    const double a = data.weights[before], b = data.weights[after];
    return std::abs(a - b) * extent <= tolerance * std::min(a, b) + 1e-12 * extent * std::min(a, b);
}

/// Homogeneous poles depend on the origin, and the tolerance that they allow shrinks with the distance
/// from it. So rational curves are brought to the origin before a removal.
Vector centring(BSplineData& data) {
    if (data.weights.empty()) return Vector::Zero();
    Box box;
    for (const Point& pole : data.poles) box.add(pole);
    const Vector centre = box.centre();
    for (Point& pole : data.poles) pole -= centre;
    return centre;
}

}  // namespace

void insert_knot(BSplineData& data, double t, int multiplicity) {
    validate(data);
    const Interval range = parameter_range(data);
    if (!range.contains(t, kParametric)) throw KernelError("A knot to insert lies outside the curve");
    auto place = std::lower_bound(data.knots.begin(), data.knots.end(), t - kParametric);
    const bool present = place != data.knots.end() && *place <= t + kParametric;
    int index = static_cast<int>(place - data.knots.begin());
    const int last_index = static_cast<int>(data.knots.size()) - 1;
    if (present && data.periodic && index == last_index) index = 0;
    const bool at_end = present && !data.periodic && (index == 0 || index == last_index);
    multiplicity = std::min(multiplicity, at_end ? data.degree + 1 : data.degree);
    const int added = multiplicity - (present ? data.multiplicities[index] : 0);
    if (added <= 0) return;
    BSplineData finer = data;
    if (present) {
        finer = with_multiplicity(data, index, multiplicity);
    } else {
        finer.knots.insert(finer.knots.begin() + index, t);
        finer.multiplicities.insert(finer.multiplicities.begin() + index, multiplicity);
    }
    const int count = static_cast<int>(data.poles.size()) + added;
    finer.poles.resize(count, Point::Zero());
    set_homogeneous(finer, data.periodic ? refined_periodic(data, finer, count)
                                         : refined_poles(write_out(data), flat_knots(finer)));
    data = std::move(finer);
}

Ref<BSplineCurve> with_knot(const BSplineCurve& curve, double t, int multiplicity) {
    BSplineData data = curve.data();
    insert_knot(data, t, multiplicity);
    return make<BSplineCurve>(std::move(data));
}

bool remove_knot(BSplineData& data, int index, int multiplicity, double tolerance) {
    validate(data, true);
    const int last_index = static_cast<int>(data.knots.size()) - 1;
    if (data.periodic && index == last_index) index = 0;
    const bool at_end = index <= 0 || index >= last_index;
    if (index < 0 || index > last_index || (at_end && !data.periodic) || multiplicity < (at_end ? 1 : 0)) {
        throw KernelError("This knot of a B-spline cannot be lowered");
    }
    BSplineData lower = data;
    if (data.multiplicities[index] > data.degree + 1) drop_idle_poles(lower, index);
    const Vector centre = centring(lower);
    const double limit = homogeneous_tolerance(lower, tolerance);
    for (int left = lower.multiplicities[index] - multiplicity; left > 0; --left) {
        const bool done =
            data.periodic ? remove_copy_periodic(lower, index, limit) : remove_copy_open(lower, index, limit);
        if (!done) return false;
    }
    if (!lower.weights.empty()) {
        for (Point& pole : lower.poles) pole += centre;
    }
    data = std::move(lower);
    return true;
}

Ref<BSplineCurve> without_knot(const BSplineCurve& curve, int index, int multiplicity, double tolerance) {
    BSplineData data = curve.data();
    if (!remove_knot(data, index, multiplicity, tolerance)) return nullptr;
    return make<BSplineCurve>(std::move(data));
}

bool lower_excess_knots(BSplineData& data, double tolerance) {
    validate(data, true);
    const std::vector<HomogeneousPoint> old = homogeneous_poles(data);
    std::vector<HomogeneousPoint> poles;
    std::vector<int> multiplicities = data.multiplicities;
    int place = first_copy(data, 1);
    int taken = 0;
    for (std::size_t i = 1; i + 1 < multiplicities.size(); ++i) {
        const int copies = multiplicities[i];
        if (copies > data.degree) {
            // The last pole of the piece before the knot and the first one after it become one.
            const int before = place - 1, after = place + copies - data.degree - 1;
            if (!ends_meet(data, before, after, tolerance)) return false;
            poles.insert(poles.end(), old.begin() + taken, old.begin() + place);
            poles.back() = (old[before] + old[after]) / 2;
            taken = place + copies - data.degree;
            multiplicities[i] = data.degree;
        }
        place += copies;
    }
    if (taken == 0) return true;
    poles.insert(poles.end(), old.begin() + taken, old.end());
    data.multiplicities = std::move(multiplicities);
    set_homogeneous(data, poles);
    return true;
}

Ref<BSplineCurve> with_first_multiplicity(const BSplineCurve& curve, int multiplicity, double tolerance) {
    if (!curve.is_periodic()) throw KernelError("Only a periodic B-spline can lower its first knot");
    BSplineData data = curve.data();
    multiplicity = std::max(multiplicity, 1);
    while (data.multiplicities.front() > multiplicity) {
        if (!remove_knot(data, 0, data.multiplicities.front() - 1, tolerance)) break;
    }
    return make<BSplineCurve>(std::move(data));
}

}  // namespace veltrane::kernel
