// SPATIAL_FILTER, SPATIAL_INDEX, LAYER_FILTER and LAYER_INDEX: what a block shows of itself, and where it is.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

/// The boundary by which an insert is clipped.
struct DxfEnt_SpatialFilter : Typed<DxfEnt_SpatialFilter, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_SpatialFilter";

    std::int32_t ClipBndPntNum = 0;
    kernel::Point2 ClipBndDefPnt{0, 0};  ///< room for one
    kernel::Vector Normal{0, 0, 0};
    kernel::Point Origin{0, 0, 0};
    std::int32_t DisplayEnabledFlag = 0;
    std::int32_t FrontClipPlnFlag = 0;
    std::int32_t BackClipPlnFlag = 0;
    double BackClipPlnDist = 0;
    Ref<Sequence<double>> TransMatrix;
};

struct DxfEnt_SpatialIndex : Typed<DxfEnt_SpatialIndex, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_SpatialIndex";

    double TimeStamp = 0;  ///< Julian date
};

struct DxfEnt_LayerFilter : Typed<DxfEnt_LayerFilter, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_LayerFilter";

    Ref<Sequence<Text>> LayerName;
};

struct DxfEnt_LayerIndex : Typed<DxfEnt_LayerIndex, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_LayerIndex";

    double TimeStamp = 0;  ///< Julian date
    Ref<Sequence<Text>> LayerName;
    Ref<Sequence<std::int32_t>> IDBufferRef;
    std::int32_t IDBuffErentriesNum = kUndefinedInteger;  ///< room for that of one layer
};

}  // namespace veltrane
