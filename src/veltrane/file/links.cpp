#include "veltrane/file/links.hpp"

#include "veltrane/file/common.hpp"

namespace veltrane {

using namespace rows;

namespace {

/// A record without a handle takes the first one that comes for its own.
bool read_sort_handle(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    auto& sort_table = static_cast<DxfEnt_SortEntStable&>(record);
    if (sort_table.Handle == 0) {
        sort_table.Handle = reader.ReadHex(stream);
    } else {
        append(sort_table.EntSortPointerHandle, reader.ReadHex(stream));
    }
    return true;
}

/// In files, each entity has its sort handle beside it, as long as there are as many of the one as of the
/// other.
void write_sort_handles(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
    const auto& sort_table = static_cast<const DxfEnt_SortEntStable&>(record);
    const int entities = length(sort_table.EntSoftPointerIDs);
    const int handles = length(sort_table.EntSortPointerHandle);
    const auto write_handle = [&](int number) {
        writer.WriteHex(stream, 5, sort_table.EntSortPointerHandle->Value(number));
    };
    const bool paired = writer.IsPortable() && entities == handles;
    for (int number = 1; number <= entities; ++number) {
        writer.WriteHex(stream, 331, sort_table.EntSoftPointerIDs->Value(number));
        if (paired) write_handle(number);
    }
    if (paired) return;
    for (int number = 1; number <= handles; ++number) write_handle(number);
}

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_Group>() {
    using Record = DxfEnt_Group;
    static const RecordTable table(
        "DxfEnt_Group",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbGroup"),
         string(300, "Description", &Record::Description), integer(70, "UnnamedFlag", &Record::UnnamedFlag),
         integer(71, "SelectabilityFlag", &Record::SelectabilityFlag),
         handles(340, "EntityHandle", &Record::EntityHandle)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_SortEntStable>() {
    using Record = DxfEnt_SortEntStable;
    static const RecordTable table(
        "DxfEnt_SortEntStable",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbSortentsTable"),
         handles(331, "EntSoftPointerIDs", &Record::EntSoftPointerIDs).never_written(),
         handles(5, "EntSortPointerHandle", &Record::EntSortPointerHandle).not_read().never_written(),
         piece(5, {&read_sort_handle, &write_sort_handles, nullptr})});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_IDBuffer>() {
    static const RecordTable table("DxfEnt_IDBuffer", {base(record_table<DxfSection_NgEntity>())});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_DimAssoc>() {
    using Record = DxfEnt_DimAssoc;
    static const RecordTable table(
        "DxfEnt_DimAssoc",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbDimAssoc"),
         integer(90, "AssociativityFlag", &Record::AssociativityFlag),
         integer(70, "TransSpaceFlag", &Record::TransSpaceFlag),
         integer(71, "RotatedDimensiontype", &Record::RotatedDimensiontype),
         // Begins each point; what lies inside a block has more than one handle.
         constant(1, nullptr, "AcDbOsnapPointRef").last_of_many(),
         integer(72, "ObjectOsnapType", &Record::ObjectOsnapType),
         handle(331, "MainObjectID", &Record::MainObjectID).last_of_many(),
         integer(73, "SubentType", &Record::SubentType), integer(91, "GsMarker", &Record::GsMarker),
         string(301, "Xref", &Record::Xref).last_of_many(), real(40, "OsnapParam", &Record::OsnapParam),
         point(10, "OsnapPoint", &Record::OsnapPoint),
         handle(332, "IntersectionObject", &Record::IntersectionObject).last_of_many(),
         integer(74, "IntersctionType", &Record::IntersctionType),
         integer(92, "IntersectionGsMarker", &Record::IntersectionGsMarker),
         string(302, "IntersectionXref", &Record::IntersectionXref).last_of_many(),
         integer(75, "HasLastPointRefFlag", &Record::HasLastPointRefFlag)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_ObjectPtr>() {
    static const RecordTable table("DxfEnt_ObjectPtr", {base(record_table<DxfSection_NgEntity>()),
                                                        piece(-1, {nullptr, &write_extended_data, nullptr})});
    return table;
}

}  // namespace veltrane
