#include "veltrane/data/free_geometry.hpp"

#include "veltrane/kernel/geom/trimmed_curve.hpp"

#include <cmath>
#include <numbers>
#include <utility>

namespace veltrane::DxfData {
namespace {

constexpr double kSmallestBulge = 1e-6;

}  // namespace

double radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

Ref<DxfData_GeometrySequence> sequence_of(Ref<Transient> item) {
    auto sequence = make<DxfData_GeometrySequence>();
    sequence->Append(std::move(item));
    return sequence;
}

void transform(DxfData_GeometrySequence& sequence, const kernel::Transform& transform) {
    for (Ref<Transient>& item : sequence) {
        if (const auto point = as<kernel::FreePoint>(item)) {
            item = make<kernel::FreePoint>(transform.point(point->point()));
        } else if (const auto curve = as<kernel::Curve>(item)) {
            item = curve->transformed(transform);
        }
    }
}

Ref<kernel::Curve> bulged_segment(const kernel::Point& from, const kernel::Point& to, double bulge) {
    const kernel::Vector chord = to - from;
    const double length = chord.norm();
    if (!(length > kernel::kConfusion)) return nullptr;
    // Three points of a tiny arc would be one.
    const bool is_tiny = length * std::hypot(1, bulge) <= 4 * kernel::kConfusion;
    if (std::abs(bulge) <= kSmallestBulge || is_tiny) return kernel::make_segment(from, to);
    kernel::Point middle = (from + to) / 2 + bulge / 2 * kernel::Vector(chord.y(), -chord.x(), 0);
    middle.z() = from.z();
    return kernel::make_arc(from, middle, to);
}

}  // namespace veltrane::DxfData
