// Steps on free geometry that translators share.
#pragma once

#include "veltrane/data/transfer_context.hpp"
#include "veltrane/kernel/geom/curve.hpp"

namespace veltrane::DxfData {

double radians(double degrees);

Ref<DxfData_GeometrySequence> sequence_of(Ref<Transient> item);

/// Moves every point and curve of the sequence. Throws kernel::KernelError.
void transform(DxfData_GeometrySequence& sequence, const kernel::Transform& transform);

/// The way from one vertex of a polyline to the next: straight without a bulge, otherwise the arc that turns
/// by 4 atan(bulge), to the left above 0. The arc is seen in X and Y and reaches its middle at the height of
/// `from`. Null when the points are not kConfusion apart. Throws kernel::KernelError.
Ref<kernel::Curve> bulged_segment(const kernel::Point& from, const kernel::Point& to, double bulge);

}  // namespace veltrane::DxfData
