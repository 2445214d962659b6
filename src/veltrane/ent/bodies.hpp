// The entities that carry ACIS data: BODY, REGION, 3DSOLID and the surfaces.
#pragma once

#include "veltrane/acis/sat_model.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

struct DxfEnt_Body : Typed<DxfEnt_Body, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Body";

    std::int32_t VersionNumber = 0;  ///< of the modeller's format
    Ref<acis::SatModel> Data;        ///< null when the record holds none
};

struct DxfEnt_Region : Typed<DxfEnt_Region, DxfEnt_Body> {
    static constexpr const char* kTypeName = "DxfEnt_Region";
};

struct DxfEnt_Solid3d : Typed<DxfEnt_Solid3d, DxfEnt_Body> {
    static constexpr const char* kTypeName = "DxfEnt_Solid3d";
};

/// Any surface that was read. The classes below it are for surfaces that a program makes.
struct DxfEnt_Surface : Typed<DxfEnt_Surface, DxfEnt_Body> {
    static constexpr const char* kTypeName = "DxfEnt_Surface";

    Text DxfName;  ///< the name under which it was read; null stands for that of its class
};

struct DxfEnt_ExtrudedSurface : Typed<DxfEnt_ExtrudedSurface, DxfEnt_Surface> {
    static constexpr const char* kTypeName = "DxfEnt_ExtrudedSurface";
};

struct DxfEnt_LoftedSurface : Typed<DxfEnt_LoftedSurface, DxfEnt_Surface> {
    static constexpr const char* kTypeName = "DxfEnt_LoftedSurface";
};

struct DxfEnt_NurbsSurface : Typed<DxfEnt_NurbsSurface, DxfEnt_Surface> {
    static constexpr const char* kTypeName = "DxfEnt_NurbsSurface";
};

struct DxfEnt_PlaneSurface : Typed<DxfEnt_PlaneSurface, DxfEnt_Surface> {
    static constexpr const char* kTypeName = "DxfEnt_PlaneSurface";
};

struct DxfEnt_RevolvedSurface : Typed<DxfEnt_RevolvedSurface, DxfEnt_Surface> {
    static constexpr const char* kTypeName = "DxfEnt_RevolvedSurface";
};

struct DxfEnt_SweptSurface : Typed<DxfEnt_SweptSurface, DxfEnt_Surface> {
    static constexpr const char* kTypeName = "DxfEnt_SweptSurface";
};

}  // namespace veltrane
