// New BLOCK and INSERT records, for export.
#pragma once

#include "veltrane/data/transfer_context.hpp"
#include "veltrane/ent/inserts.hpp"
#include "veltrane/section/block.hpp"

namespace veltrane::DxfData {

/// An empty block with a name of its own: "BLK" and the number of the next entry in the context's records.
Ref<DxfSection_Block> MakeBlock(const DxfData_TransferContext& context);

/// An insert that puts the block where `placement` puts a shape. A scale becomes three equal factors, a
/// mirror makes the first of them negative.
Ref<DxfEnt_Insert> MakeInsert(const DxfSection_Block& block, const kernel::Transform& placement);

}  // namespace veltrane::DxfData
