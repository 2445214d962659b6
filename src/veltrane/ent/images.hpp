// IMAGE, IMAGEDEF, IMAGEDEF_REACTOR and RASTERVARIABLES: raster images in other files.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

struct DxfEnt_Image : Typed<DxfEnt_Image, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Image";

    std::int32_t ClassVersion = 0;
    kernel::Point InsertionPoint{0, 0, 0};
    kernel::Vector UVector{0, 0, 0};  ///< one pixel along the image's lower edge
    kernel::Vector VVector{0, 0, 0};  ///< one pixel along its left edge
    kernel::Point2 ImageSize{0, 0};   ///< in pixels
    std::int32_t ImagedefObject = 0;
    std::int32_t DisplayProperties = 0;
    std::int32_t ClippingState = 0;
    std::int32_t Brightness = 0;
    std::int32_t Contrast = 0;
    std::int32_t Fade = 0;
    std::int32_t ImagedefReactor = 0;
    std::int32_t ClipBoundaryType = 0;  ///< 1 rectangle, 2 polygon
    std::int32_t ClipBndVertNumber = 0;
    kernel::Point2 ClipBoundaryVertex{0, 0};  ///< room for one
};

struct DxfEnt_ImageDef : Typed<DxfEnt_ImageDef, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_ImageDef";

    std::int32_t ClassVersion = 0;
    Text ImageFileName;
    kernel::Point2 ImageSize{0, 0};    ///< in pixels
    kernel::Point2 DefaultSize{0, 0};  ///< of one pixel
    std::int32_t IsLoadedFlag = 0;
    std::int32_t ResolutionUnits = 0;
};

struct DxfEnt_ImageDefReactor : Typed<DxfEnt_ImageDefReactor, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_ImageDefReactor";

    std::int32_t ClassVersion = 0;
};

struct DxfEnt_RasterVariables : Typed<DxfEnt_RasterVariables, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_RasterVariables";

    std::int32_t ClassVersion = 0;
    std::int32_t DisplayImageFrameFlag = 0;
    std::int32_t ImageDisplayQuality = 0;
    std::int32_t AutoCADUnits = 0;
};

}  // namespace veltrane
