// Between the object coordinate system of a record and the world: the arbitrary-axis rule of DXF.
#pragma once

#include "veltrane/kernel/math/transform.hpp"

namespace veltrane::DxfData {

/// The matrix whose columns are the object system's axes, for an extrusion direction; `point` goes from
/// object to world co-ordinates. A normal whose z is exactly 1 gives the identity, any other is brought to
/// length 1. Throws kernel::KernelError for a zero normal and for one that is not a number.
kernel::Matrix3 ECSToWCS(const kernel::Vector& normal, kernel::Point& point);
/// The same matrix; `point` goes from world to object co-ordinates.
kernel::Matrix3 WCSToECS(const kernel::Vector& normal, kernel::Point& point);

/// The motion from object to world co-ordinates.
kernel::Transform ECSToWCS(const kernel::Vector& normal);
/// Turned first by `rotation` radians about the object system's Z axis; the object system's `origin`
/// becomes the origin.
kernel::Transform ECSToWCS(const kernel::Vector& normal, const kernel::Point& origin, double rotation);

}  // namespace veltrane::DxfData
