// Where an INSERT puts its block.
#pragma once

#include "veltrane/ent/inserts.hpp"
#include "veltrane/kernel/math/transform.hpp"
#include "veltrane/section/block.hpp"

namespace veltrane {

/// A point p of the block goes to rigid(factors x (p - base)): the base point comes to the insertion point
/// whatever the factors.
struct DxfData_InsertPlacement {
    /// `scale` is in millimetres per drawing unit. Throws kernel::KernelError.
    DxfData_InsertPlacement(const DxfEnt_Insert& insert, const DxfSection_Block& block, double scale);

    /// Scales and mirrors about the origin.
    kernel::AffineMap scaling() const;
    /// What is left when the block has been scaled.
    kernel::Transform motion() const;
    /// All of it, for even factors. Throws kernel::KernelError when they are zero.
    kernel::Transform similarity() const;
    /// From the first copy to another, given along columns and rows in millimetres. Uneven factors act on it,
    /// even ones only by their signs.
    kernel::Vector offset(double along_columns, double along_rows) const;

    kernel::Vector factors;  ///< along the block's axes; their mean when they are even, with their signs
    bool is_even;            ///< the factors are of one size
    kernel::Point base;
    kernel::Transform rigid;
};

}  // namespace veltrane
