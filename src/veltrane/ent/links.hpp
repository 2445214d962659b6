// Records that tie others together by their handles: GROUP, SORTENTSTABLE, IDBUFFER, DIMASSOC and OBJECT_PTR.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

struct DxfEnt_Group : Typed<DxfEnt_Group, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_Group";

    Text Description;
    std::int32_t UnnamedFlag = 0;
    std::int32_t SelectabilityFlag = 0;
    Ref<Sequence<std::int32_t>> EntityHandle;
};

/// The order in which entities are drawn: each is sorted as if it had the handle at its place in the second
/// list.
struct DxfEnt_SortEntStable : Typed<DxfEnt_SortEntStable, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_SortEntStable";

    Ref<Sequence<std::int32_t>> EntSoftPointerIDs;
    Ref<Sequence<std::int32_t>> EntSortPointerHandle;
};

struct DxfEnt_IDBuffer : Typed<DxfEnt_IDBuffer, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_IDBuffer";
};

/// What a dimension measures: room for one of its points.
struct DxfEnt_DimAssoc : Typed<DxfEnt_DimAssoc, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_DimAssoc";

    std::int32_t AssociativityFlag = 0;  ///< bits: 1, 2, 4 and 8 for the first to the fourth point
    std::int32_t TransSpaceFlag = 0;
    std::int32_t RotatedDimensiontype = 0;
    std::int32_t ObjectOsnapType = 0;
    std::int32_t MainObjectID = 0;
    std::int32_t SubentType = 0;
    std::int32_t GsMarker = 0;
    Text Xref;
    double OsnapParam = 0;
    kernel::Point OsnapPoint{0, 0, 0};
    std::int32_t IntersectionObject = 0;
    std::int32_t IntersctionType = 0;
    std::int32_t IntersectionGsMarker = 0;
    Text IntersectionXref;
    std::int32_t HasLastPointRefFlag = 0;
};

struct DxfEnt_ObjectPtr : Typed<DxfEnt_ObjectPtr, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_ObjectPtr";
};

}  // namespace veltrane
