// Block definitions.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

/// The ENDBLK record. It has no fields of its own.
struct DxfSection_EndBlk : Typed<DxfSection_EndBlk, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfSection_EndBlk";
};

/// One block definition, from BLOCK to its ENDBLK.
struct DxfSection_Block : Typed<DxfSection_Block, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfSection_Block";

    Text BlockName1;  ///< the block's name
    std::int32_t BlockTypeFlag = 0;
    kernel::Point BasePoint{0, 0, 0};
    Text BlockName2;  ///< the name again
    Text XRefPathName;
    Text Description;
    Ref<DxfSection_HSequenceOfObject> Objects;
    Ref<DxfSection_EndBlk> EndMarker;

    Ref<DxfSection_HSequenceOfObject> GetSubObjects() const override { return Objects; }
};

}  // namespace veltrane
