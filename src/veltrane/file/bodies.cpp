#include "veltrane/file/bodies.hpp"

#include "veltrane/file/common.hpp"
#include "veltrane/file/dump_text.hpp"

#include <sstream>

namespace veltrane {

using namespace rows;

namespace {

constexpr int kR2007 = 1021;

DxfEnt_Body& body_of(Transient& record) {
    return static_cast<DxfEnt_Body&>(record);
}
const DxfEnt_Body& body_of(const Transient& record) {
    return static_cast<const DxfEnt_Body&>(record);
}

bool read_data(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    std::istringstream text(reader.ReadSatText(stream, DxfFile_FileReader::SatLines::OfAnyLength));
    body_of(record).Data = make<acis::SatModel>();
    body_of(record).Data->read(text);
    return true;
}

void write_data(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
    if (const auto& data = body_of(record).Data) writer.WriteSatData(stream, Text(data->text()));
}

void dump_data(std::ostream& stream, const Transient& record, int /*level*/) {
    if (const auto& data = body_of(record).Data) dump_label(stream, "Data") << '"' << data->text() << "\"\n";
}

std::vector<Row> body_rows() {
    return {base(record_table<DxfSection_Entity>()), marker("AcDbModelerGeometry"),
            integer(70, "VersionNumber", &DxfEnt_Body::VersionNumber),
            piece(1, {&read_data, &write_data, &dump_data})};
}

// From R2007 on a solid names its owner a second time.

bool read_owner_again(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    if (reader.ReadHex(stream) != body_of(record).Owner) reader.SendUnrecognized();
    return true;
}

void write_owner_again(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
    if (writer.Version() < kR2007) return;
    writer.WriteString(stream, 100, "AcDb3dSolid");
    writer.WriteHex(stream, 350, body_of(record).Owner);
}

template <class Record>
const RecordTable& body_table() {
    static const RecordTable table(Record::kTypeName, body_rows());
    return table;
}

std::vector<Row> solid_rows() {
    std::vector<Row> rows = body_rows();
    rows.push_back(piece(350, {&read_owner_again, &write_owner_again, nullptr}));
    return rows;
}

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_Body>() {
    return body_table<DxfEnt_Body>();
}

template <>
const RecordTable& record_table<DxfEnt_Region>() {
    return body_table<DxfEnt_Region>();
}

template <>
const RecordTable& record_table<DxfEnt_Solid3d>() {
    static const RecordTable table("DxfEnt_Solid3d", solid_rows());
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Surface>() {
    return body_table<DxfEnt_Surface>();
}

template <>
const RecordTable& record_table<DxfEnt_ExtrudedSurface>() {
    return body_table<DxfEnt_ExtrudedSurface>();
}

template <>
const RecordTable& record_table<DxfEnt_LoftedSurface>() {
    return body_table<DxfEnt_LoftedSurface>();
}

template <>
const RecordTable& record_table<DxfEnt_NurbsSurface>() {
    return body_table<DxfEnt_NurbsSurface>();
}

template <>
const RecordTable& record_table<DxfEnt_PlaneSurface>() {
    return body_table<DxfEnt_PlaneSurface>();
}

template <>
const RecordTable& record_table<DxfEnt_RevolvedSurface>() {
    return body_table<DxfEnt_RevolvedSurface>();
}

template <>
const RecordTable& record_table<DxfEnt_SweptSurface>() {
    return body_table<DxfEnt_SweptSurface>();
}

}  // namespace veltrane
