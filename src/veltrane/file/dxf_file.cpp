#include "veltrane/file/dxf_file.hpp"

#include "veltrane/exchange/general_library.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/annotations.hpp"
#include "veltrane/file/block.hpp"
#include "veltrane/file/bodies.hpp"
#include "veltrane/file/curves.hpp"
#include "veltrane/file/dictionaries.hpp"
#include "veltrane/file/embedded.hpp"
#include "veltrane/file/faces.hpp"
#include "veltrane/file/filters.hpp"
#include "veltrane/file/hatch.hpp"
#include "veltrane/file/images.hpp"
#include "veltrane/file/inserts.hpp"
#include "veltrane/file/layouts.hpp"
#include "veltrane/file/links.hpp"
#include "veltrane/file/multileader.hpp"
#include "veltrane/file/multiline.hpp"
#include "veltrane/file/polylines.hpp"
#include "veltrane/file/structure.hpp"
#include "veltrane/file/tables.hpp"

#include <mutex>

namespace veltrane {

namespace {

/// Registrators live for the process.
template <class Record>
void register_record(const char* name) {
    static const DxfFile_RecordRegistrator<Record> registrator(name);
}

template <class Surface>
void register_surface(const char* name) {
    static const DxfFile_SurfaceRegistrator<Surface> registrator(name);
}

void register_records() {
    register_record<DxfEnt_AcadProxyEntity>("ACAD_PROXY_ENTITY");
    register_record<DxfEnt_AcadProxyObject>("ACAD_PROXY_OBJECT");
    register_record<DxfEnt_AcDbDictionaryWDflt>("ACDBDICTIONARYWDFLT");
    register_record<DxfEnt_AcDbPlaceHolder>("ACDBPLACEHOLDER");
    register_record<DxfSection_AcDsRecord>("ACDSRECORD");
    register_record<DxfSection_AppId>("APPID");
    register_record<DxfEnt_Arc>("ARC");
    register_record<DxfEnt_AttDef>("ATTDEF");
    register_record<DxfEnt_Attrib>("ATTRIB");
    register_record<DxfSection_Block>("BLOCK");
    register_record<DxfSection_BlockRecord>("BLOCK_RECORD");
    register_record<DxfEnt_Body>("BODY");
    register_record<DxfEnt_Circle>("CIRCLE");
    register_record<DxfSection_Class>("CLASS");
    register_record<DxfEnt_Dictionary>("DICTIONARY");
    register_record<DxfEnt_DictionaryVar>("DICTIONARYVAR");
    register_record<DxfEnt_DimAssoc>("DIMASSOC");
    register_record<DxfEnt_Dimension>("DIMENSION");
    register_record<DxfSection_DimStyle>("DIMSTYLE");
    register_record<DxfEnt_Ellipse>("ELLIPSE");
    register_record<DxfSection_EndBlk>("ENDBLK");
    register_surface<DxfEnt_ExtrudedSurface>("EXTRUDEDSURFACE");
    register_record<DxfEnt_Face3d>("3DFACE");
    register_record<DxfEnt_Group>("GROUP");
    register_record<DxfEnt_Hatch>("HATCH");
    register_record<DxfEnt_IDBuffer>("IDBUFFER");
    register_record<DxfEnt_Image>("IMAGE");
    register_record<DxfEnt_ImageDef>("IMAGEDEF");
    register_record<DxfEnt_ImageDefReactor>("IMAGEDEF_REACTOR");
    register_record<DxfEnt_Insert>("INSERT");
    register_record<DxfSection_Layer>("LAYER");
    register_record<DxfEnt_LayerFilter>("LAYER_FILTER");
    register_record<DxfEnt_LayerIndex>("LAYER_INDEX");
    register_record<DxfEnt_Layout>("LAYOUT");
    register_record<DxfEnt_Leader>("LEADER");
    register_record<DxfEnt_Line>("LINE");
    register_record<DxfSection_LType>("LTYPE");
    register_surface<DxfEnt_LoftedSurface>("LOFTEDSURFACE");
    register_record<DxfEnt_LWPolyline>("LWPOLYLINE");
    register_record<DxfEnt_Mesh>("MESH");
    register_record<DxfEnt_MLeader>("MULTILEADER");
    register_record<DxfEnt_MLine>("MLINE");
    register_record<DxfEnt_MLineStyle>("MLINESTYLE");
    register_record<DxfEnt_MText>("MTEXT");
    register_surface<DxfEnt_NurbsSurface>("NURBSURFACE");
    register_record<DxfEnt_ObjectPtr>("OBJECT_PTR");
    register_record<DxfEnt_OLE2Frame>("OLE2FRAME");
    register_record<DxfEnt_OLEFrame>("OLEFRAME");
    register_surface<DxfEnt_PlaneSurface>("PLANESURFACE");
    register_record<DxfEnt_PlotSettings>("PLOTSETTINGS");
    register_record<DxfEnt_Point>("POINT");
    register_record<DxfEnt_Polyline>("POLYLINE");
    register_record<DxfEnt_RasterVariables>("RASTERVARIABLES");
    register_record<DxfEnt_Ray>("RAY");
    register_record<DxfEnt_Region>("REGION");
    register_surface<DxfEnt_RevolvedSurface>("REVOLVEDSURFACE");
    register_record<DxfSection_Section>("SECTION");
    register_record<DxfEnt_SeqEnd>("SEQEND");
    register_record<DxfEnt_Shape>("SHAPE");
    register_record<DxfEnt_Solid>("SOLID");
    register_record<DxfEnt_Solid3d>("3DSOLID");
    register_record<DxfEnt_SortEntStable>("SORTENTSTABLE");
    register_record<DxfEnt_SpatialFilter>("SPATIAL_FILTER");
    register_record<DxfEnt_SpatialIndex>("SPATIAL_INDEX");
    register_record<DxfEnt_Spline>("SPLINE");
    register_record<DxfSection_Style>("STYLE");
    register_surface<DxfEnt_Surface>("SURFACE");
    register_surface<DxfEnt_SweptSurface>("SWEPTSURFACE");
    register_record<DxfSection_Table>("TABLE");
    register_record<DxfEnt_Text>("TEXT");
    register_record<DxfEnt_Tolerance>("TOLERANCE");
    register_record<DxfEnt_Trace>("TRACE");
    register_record<DxfSection_UCS>("UCS");
    register_record<DxfSection_UnrecognizedObject>("UNRECOGNIZED_OBJECT");
    register_record<DxfEnt_VbaProject>("VBA_PROJECT");
    register_record<DxfEnt_Vertex>("VERTEX");
    register_record<DxfSection_View>("VIEW");
    register_record<DxfEnt_ViewPort>("VIEWPORT");
    register_record<DxfSection_VPort>("VPORT");
    register_record<DxfEnt_XLine>("XLINE");
    register_record<DxfEnt_XRecord>("XRECORD");
}

void register_parameters() {
    StaticParameters::Register(kCommonFamily, "write.dxf.deflection.factor", 'r', "0.05");
    StaticParameters::RegisterEnumeration(kCommonFamily, "read.dxf.anonymous.blocks", 0, {"Off", "On"}, "On");
    StaticParameters::RegisterEnumeration(kCommonFamily, "write.dxf.version", 11,
                                          {"Undef", "R12", "R13", "R14", "R2000", "R2004", "R2007", "R2010"},
                                          "R14");
    StaticParameters::RegisterEnumeration(kCommonFamily, "write.dxf.r12.markers", 0, {"Off", "On"}, "On");
    StaticParameters::Register(kCommonFamily, "write.dxf.resource.name", 't', "DXF");
    StaticParameters::Register(kCommonFamily, "read.dxf.resource.name", 't', "DXF");
    StaticParameters::Register(kCommonFamily, "write.dxf.sequence", 't', "ToDXF");
    StaticParameters::Register(kCommonFamily, "read.dxf.sequence", 't', "FromDXF");
    StaticParameters::RegisterEnumeration(kCommonFamily, "read.dxf.textentities", 0, {"Off", "On"}, "Off");
    StaticParameters::RegisterEnumeration(kCommonFamily, "read.dxf.hatchentities", 0, {"Off", "On"}, "Off");
}

Ref<DxfFile_Protocol>& protocol() {
    static Ref<DxfFile_Protocol> instance;
    return instance;
}

}  // namespace

void DxfFile::Init() {
    static std::once_flag once;
    std::call_once(once, [] {
        register_records();
        protocol() = make<DxfFile_Protocol>();
        GeneralLibrary::SetGlobal(make<DxfFile_GeneralModule>(), protocol());
        register_parameters();
    });
}

const Ref<DxfFile_Protocol>& DxfFile::Protocol() {
    return protocol();
}

}  // namespace veltrane
