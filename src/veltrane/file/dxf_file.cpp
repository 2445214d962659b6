#include "veltrane/file/dxf_file.hpp"

#include "veltrane/exchange/general_library.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/block.hpp"
#include "veltrane/file/curves.hpp"
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

void register_records() {
    register_record<DxfSection_AcDsRecord>("ACDSRECORD");
    register_record<DxfSection_AppId>("APPID");
    register_record<DxfEnt_Arc>("ARC");
    register_record<DxfSection_Block>("BLOCK");
    register_record<DxfSection_BlockRecord>("BLOCK_RECORD");
    register_record<DxfEnt_Circle>("CIRCLE");
    register_record<DxfSection_Class>("CLASS");
    register_record<DxfSection_DimStyle>("DIMSTYLE");
    register_record<DxfEnt_Ellipse>("ELLIPSE");
    register_record<DxfSection_EndBlk>("ENDBLK");
    register_record<DxfSection_Layer>("LAYER");
    register_record<DxfEnt_Line>("LINE");
    register_record<DxfSection_LType>("LTYPE");
    register_record<DxfEnt_Point>("POINT");
    register_record<DxfEnt_Ray>("RAY");
    register_record<DxfSection_Section>("SECTION");
    register_record<DxfEnt_Spline>("SPLINE");
    register_record<DxfSection_Style>("STYLE");
    register_record<DxfSection_Table>("TABLE");
    register_record<DxfSection_UCS>("UCS");
    register_record<DxfSection_UnrecognizedObject>("UNRECOGNIZED_OBJECT");
    register_record<DxfSection_View>("VIEW");
    register_record<DxfSection_VPort>("VPORT");
    register_record<DxfEnt_XLine>("XLINE");
}

void register_parameters() {
    StaticParameters::Register(kCommonFamily, "write.dxf.deflection.factor", 'r', "0.05");
    StaticParameters::RegisterEnumeration(kCommonFamily, "read.dxf.anonymous.blocks", 0, {"Off", "On"}, "On");
    StaticParameters::RegisterEnumeration(kCommonFamily, "write.dxf.version", 11,
                                          {"Undef", "R12", "R13", "R14", "R2000", "R2004", "R2007", "R2010"},
                                          "R14");
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
