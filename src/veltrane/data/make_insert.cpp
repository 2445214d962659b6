#include "veltrane/data/make_insert.hpp"

#include "veltrane/data/object_coordinates.hpp"

#include <cmath>
#include <numbers>
#include <string>

namespace veltrane::DxfData {

Ref<DxfSection_Block> MakeBlock(const DxfData_TransferContext& context) {
    auto block = make<DxfSection_Block>();
    block->BlockName1 = "BLK" + std::to_string(context.Records().Length() + 1);
    block->Objects = make<DxfSection_HSequenceOfObject>();
    return block;
}

Ref<DxfEnt_Insert> MakeInsert(const DxfSection_Block& block, const kernel::Transform& placement) {
    auto insert = make<DxfEnt_Insert>();
    insert->BlockName = block.BlockName1;
    if (placement.is_identity()) return insert;
    const kernel::Matrix3 linear = placement.linear_part();
    const kernel::Vector x = linear.col(0), y = linear.col(1);
    const kernel::Vector normal = kernel::unit(linear.col(2));
    insert->ExtrusionDir = normal;
    insert->InsertionPoint = placement.translation_part();
    kernel::Vector axis = kernel::unit(WCSToECS(normal, insert->InsertionPoint).col(0));
    // A mirror keeps the third axis for the normal and turns the first one round.
    const bool is_mirrored = kernel::cross(normal, x).dot(y) < 0;
    const double factor = std::abs(placement.scale_factor());
    insert->XScaleFactor = is_mirrored ? -factor : factor;
    insert->YScaleFactor = insert->ZScaleFactor = factor;
    if (is_mirrored) axis = -axis;
    const double angle = std::atan2(kernel::cross(axis, x).dot(normal), axis.dot(x));
    insert->RotationAngle = angle * 180 / std::numbers::pi;
    return insert;
}

}  // namespace veltrane::DxfData
