// The four-cornered entities 3DFACE, TRACE and SOLID.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

/// Corners run around the face; a triangle repeats its third corner as the fourth.
struct DxfEnt_Face3d : Typed<DxfEnt_Face3d, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Face3d";

    kernel::Point FirstCorner{0, 0, 0};
    kernel::Point SecondCorner{0, 0, 0};
    kernel::Point ThirdCorner{0, 0, 0};
    kernel::Point FourthCorner{0, 0, 0};
    std::int32_t Flags = 0;  ///< bits 1, 2, 4, 8: the edge that begins at that corner is hidden
};

/// Corners in the object coordinate system, row by row: the third lies beside the first.
struct DxfEnt_Trace : Typed<DxfEnt_Trace, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Trace";

    kernel::Point FirstCorner{0, 0, 0};
    kernel::Point SecondCorner{0, 0, 0};
    kernel::Point ThirdCorner{0, 0, 0};
    kernel::Point FourthCorner{0, 0, 0};
    double Thickness = 0;
    kernel::Vector ExtrusionDir{0, 0, 1};
};

struct DxfEnt_Solid : Typed<DxfEnt_Solid, DxfEnt_Trace> {
    static constexpr const char* kTypeName = "DxfEnt_Solid";
};

}  // namespace veltrane
