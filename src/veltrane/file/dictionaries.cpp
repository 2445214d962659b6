#include "veltrane/file/dictionaries.hpp"

#include "veltrane/file/common.hpp"
#include "veltrane/file/gathered_groups.hpp"

namespace veltrane {

using namespace rows;

namespace {

constexpr int kR14 = 1014;
constexpr int kR2000 = 1015;
constexpr int kMarkerCode = 100;
constexpr int kCloningCode = 280;

/// The data lasts from its marker to the record's end. Only a group directly after the marker tells how the
/// record is cloned: further ones of that code are data like any other.
bool read_data(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    auto data = make<DxfEnt_XRecordData>();
    static_cast<DxfEnt_XRecord&>(record).Data = data;
    reader.Next(stream);
    if (reader.HasGroup() && reader.Code() == kCloningCode) {
        data->CloningFlag = reader.ReadInteger(stream);
        reader.Next(stream);
    }
    GatheredGroups groups(reader);
    for (; reader.HasGroup() && reader.Code() != 0; reader.Next(stream)) {
        if (reader.Code() == kMarkerCode) {
            reader.SendUnrecognized();
        } else {
            groups.take();
        }
    }
    data->Data = groups.list();
    reader.PushBack();
    return true;
}

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_DictionaryEntry>() {
    using Record = DxfEnt_DictionaryEntry;
    static const RecordTable table(
        "DxfEnt_DictionaryEntry",
        {string(3, "EntryName", &Record::EntryName),
         handle(350, "EntryObjectID", &Record::EntryObjectID).unless_undefined(),
         handle(360, "EntryObjectID360", &Record::EntryObjectID360).unless_undefined(),
         handle(370, "EntryObjectID370", &Record::EntryObjectID370).unless_undefined()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Dictionary>() {
    using Record = DxfEnt_Dictionary;
    static const RecordTable table(
        "DxfEnt_Dictionary", {base(record_table<DxfSection_NgEntity>()), marker("AcDbDictionary"),
                              integer(280, "HardOwnerFlag", &Record::HardOwnerFlag).since(kR2000),
                              integer(281, "CloningFlag", &Record::CloningFlag).since(kR2000),
                              records<&Record::DictionaryEntries>(3, "DictionaryEntries",
                                                                  record_table<DxfEnt_DictionaryEntry>())});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_AcDbDictionaryWDflt>() {
    using Record = DxfEnt_AcDbDictionaryWDflt;
    static const RecordTable table(
        "DxfEnt_AcDbDictionaryWDflt",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbDictionary"),
         integer(281, "CloningFlag", &Record::CloningFlag),
         string(3, "EntryName", &Record::EntryName).last_of_many(),
         handle(350, "EntryObjectID", &Record::EntryObjectID).last_of_many(),
         marker("AcDbDictionaryWithDefault", "@SubclassMarker2"),
         handle(340, "DefaultObjectID", &Record::DefaultObjectID).unless_undefined()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_DictionaryVar>() {
    using Record = DxfEnt_DictionaryVar;
    static const RecordTable table(
        "DxfEnt_DictionaryVar",
        {base(record_table<DxfSection_NgEntity>()), marker("DictionaryVariables"),
         integer(280, "SchemaNumber", &Record::SchemaNumber), string(1, "Value", &Record::Value)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_AcDbPlaceHolder>() {
    using Record = DxfEnt_AcDbPlaceHolder;
    static const RecordTable table(
        "DxfEnt_AcDbPlaceHolder",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbPlaceHolder").since(kR14).below(kR14 + 1),
         integer(280, "XZData", &Record::XZData).unless_undefined().since(kR14).below(kR14 + 1)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_XRecordData>() {
    using Record = DxfEnt_XRecordData;
    static const RecordTable table(
        "DxfEnt_XRecordData",
        {marker("AcDbXrecord"), integer(kCloningCode, "CloningFlag", &Record::CloningFlag),
         groups("Data", &Record::Data)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_XRecord>() {
    using Record = DxfEnt_XRecord;
    static const RecordTable table(
        "DxfEnt_XRecord",
        {base(record_table<DxfSection_NgEntity>()), piece(kMarkerCode, {&read_data, nullptr, nullptr}),
         record<&Record::Data>(kMarkerCode, "Data", record_table<DxfEnt_XRecordData>()).not_read()});
    return table;
}

}  // namespace veltrane
