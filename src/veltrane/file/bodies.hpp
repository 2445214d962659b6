// Readers and writers of the entities that carry ACIS data.
#pragma once

#include "veltrane/ent/bodies.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_Body>();
using DxfFile_RWBody = DxfFile_RecordRW<DxfEnt_Body>;

template <>
const RecordTable& record_table<DxfEnt_Region>();
using DxfFile_RWRegion = DxfFile_RecordRW<DxfEnt_Region>;

template <>
const RecordTable& record_table<DxfEnt_Solid3d>();
using DxfFile_RWSolid3d = DxfFile_RecordRW<DxfEnt_Solid3d>;

template <>
const RecordTable& record_table<DxfEnt_Surface>();
using DxfFile_RWSurface = DxfFile_RecordRW<DxfEnt_Surface>;

template <>
const RecordTable& record_table<DxfEnt_ExtrudedSurface>();
template <>
const RecordTable& record_table<DxfEnt_LoftedSurface>();
template <>
const RecordTable& record_table<DxfEnt_NurbsSurface>();
template <>
const RecordTable& record_table<DxfEnt_PlaneSurface>();
template <>
const RecordTable& record_table<DxfEnt_RevolvedSurface>();
template <>
const RecordTable& record_table<DxfEnt_SweptSurface>();

/// Registers a class of surfaces. What is read becomes a plain surface, whichever name it has, and keeps the
/// name; so it is written under that again.
template <class Surface>
class DxfFile_SurfaceRegistrator : public DxfFile_RecordRegistrator<Surface> {
public:
    using DxfFile_RecordRegistrator<Surface>::DxfFile_RecordRegistrator;

    Ref<DxfSection_Object> Read(std::istream& stream, DxfFile_FileReader& reader) const override {
        const Text name = reader.Value();
        const Ref<DxfEnt_Surface> surface = DxfFile_RWSurface::Read(stream, reader);
        surface->DxfName = name;
        return surface;
    }
    std::string_view NameOf(const DxfSection_Object& record) const override {
        const Text& name = static_cast<const DxfEnt_Surface&>(record).DxfName;
        return name.is_null() ? std::string_view(this->Name()) : name.view();
    }
};

}  // namespace veltrane
