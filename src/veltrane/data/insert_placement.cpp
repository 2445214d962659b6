#include "veltrane/data/insert_placement.hpp"

#include "veltrane/data/free_geometry.hpp"
#include "veltrane/data/object_coordinates.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <cmath>

namespace veltrane {
namespace {

constexpr double kEven = 1e-7;          // how far factors of one size may differ
constexpr double kSmallestBase = 1e-7;  // millimetres

kernel::Matrix3 diagonal(const kernel::Vector& factors) {
    return factors.asDiagonal();
}

kernel::Vector signs(const kernel::Vector& factors) {
    return {std::copysign(1.0, factors.x()), std::copysign(1.0, factors.y()),
            std::copysign(1.0, factors.z())};
}

}  // namespace

DxfData_InsertPlacement::DxfData_InsertPlacement(const DxfEnt_Insert& insert, const DxfSection_Block& block,
                                                 double scale)
    : factors(insert.XScaleFactor, insert.YScaleFactor, insert.ZScaleFactor),
      base(scale * block.BasePoint),
      rigid(DxfData::ECSToWCS(kernel::unit(insert.ExtrusionDir), scale * insert.InsertionPoint,
                              DxfData::radians(insert.RotationAngle))) {
    if (!kernel::is_usable(factors)) throw kernel::KernelError("A scale factor is out of range");
    const kernel::Vector size = factors.cwiseAbs();
    is_even = std::abs(size.x() - size.y()) < kEven && std::abs(size.x() - size.z()) < kEven;
    if (is_even) factors = size.mean() * signs(factors);
    if (base.cwiseAbs().maxCoeff() <= kSmallestBase) base.setZero();
}

kernel::AffineMap DxfData_InsertPlacement::scaling() const {
    return {diagonal(factors), kernel::Vector::Zero()};
}

kernel::Transform DxfData_InsertPlacement::motion() const {
    return rigid * kernel::Transform::translation(-factors.cwiseProduct(base));
}

kernel::Transform DxfData_InsertPlacement::similarity() const {
    return rigid * kernel::Transform::from_matrix(diagonal(factors), -factors.cwiseProduct(base));
}

kernel::Vector DxfData_InsertPlacement::offset(double along_columns, double along_rows) const {
    const kernel::Vector spacing(along_columns, along_rows, 0);
    return rigid.vector((is_even ? signs(factors) : factors).cwiseProduct(spacing));
}

}  // namespace veltrane
