#include "veltrane/file/common.hpp"

#include "veltrane/file/dump_text.hpp"

namespace veltrane {

namespace {

constexpr int kByLayer = -1;
constexpr int kDeepestExtendedData = 64;  // the format allows far fewer levels

// Pieces of a handled record

bool read_app_data(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    append(static_cast<DxfSection_HandledObject&>(record).AppData, DxfFile_RWAppData::Read(stream, reader));
    return true;
}

void write_app_data(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
    const auto& lists = static_cast<const DxfSection_HandledObject&>(record).AppData;
    if (!lists) return;
    for (const auto& list : *lists) DxfFile_RWAppData::Write(stream, writer, *list);
}

void dump_app_data(std::ostream& stream, const Transient& record, int level) {
    const auto& lists = static_cast<const DxfSection_HandledObject&>(record).AppData;
    dump_elements(stream, "AppData", lists, level, [&](const DxfSection_AppData& list, int depth) {
        DxfFile_RWAppData::Dump(stream, list, depth);
    });
}

bool read_extended_data(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    auto data = make<DxfSection_XAppData>();
    data->XAppName = reader.Value();
    data->Groups = make<DxfSection_HSequenceOfDxfGroup>();
    constexpr std::int32_t kFirstExtended = 1000;
    reader.CopyGroups(data->Groups.get(), kFirstExtended);
    reader.Next(stream);
    data->XData = DxfFile_RWXData::Read(stream, reader);
    append(static_cast<DxfSection_HandledObject&>(record).XAppData, data);
    return true;
}

void dump_extended_data(std::ostream& stream, const Transient& record, int level) {
    const auto& applications = static_cast<const DxfSection_HandledObject&>(record).XAppData;
    if (!applications) return;
    for (const auto& data : *applications) {
        if (!data->XAppName.is_null()) dump_label(stream, "XAppName") << '"' << data->XAppName << "\"\n";
        dump_piece(stream, "XData", data->XData, level, [&](const DxfSection_XData& level_data, int depth) {
            DxfFile_RWXData::Dump(stream, level_data, depth);
        });
    }
}

/// The first owner counts: some records name another record by the same code further on.
bool read_owner(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    auto& owner = static_cast<DxfSection_HandledObject&>(record).Owner;
    const std::int32_t handle = reader.ReadHex(stream);
    if (is_undefined(owner)) {
        owner = handle;
    } else if (owner != handle) {
        reader.SendUnrecognized();
    }
    return true;
}

/// An object embedded in a record lasts to the record's extended data or end. Its groups have the codes of
/// the record's own, and are none of them.
bool skip_embedded_object(std::istream& stream, DxfFile_FileReader& reader, Transient& /*record*/) {
    const std::int32_t first_line = reader.LineNumber();
    int groups = 0;
    for (; reader.HasGroup() && reader.Code() != 0 && reader.Code() != 1001; reader.Next(stream)) ++groups;
    reader.SendWarning({"An embedded object of %d groups is skipped at line %d", groups, first_line});
    reader.PushBack();
    return true;
}

bool is_extended(int code) {
    return code == 1000 || (code >= 1003 && code <= 1071);
}

}  // namespace

// Tables

std::vector<Row> handled_rows(int handle_code) {
    using Record = DxfSection_HandledObject;
    return {rows::handle(handle_code, "Handle", &Record::Handle),
            rows::piece(102, {&read_app_data, &write_app_data, &dump_app_data}),
            rows::piece(330, {&read_owner, nullptr, nullptr}),
            rows::handle(330, "Owner", &Record::Owner).unless_undefined().not_read(),
            rows::piece(101, {&skip_embedded_object, nullptr, nullptr}),
            rows::string(1000, "XDataName", &Record::XDataName).never_written(),
            rows::piece(1001, {&read_extended_data, nullptr, &dump_extended_data})};
}

template <>
const RecordTable& record_table<DxfSection_HandledObject>() {
    static const RecordTable table("DxfSection_HandledObject", handled_rows(5));
    return table;
}

template <>
const RecordTable& record_table<DxfSection_Entity>() {
    using Record = DxfSection_Entity;
    static const RecordTable table(
        "DxfSection_Entity",
        {rows::base(record_table<DxfSection_HandledObject>()), rows::marker("AcDbEntity"),
         rows::integer(67, "InModelSpace", &Record::InModelSpace).unless(0),
         rows::string(8, "Layer", &Record::Layer),
         rows::string(6, "Linetype", &Record::Linetype).unless("BYLAYER"),
         rows::integer(62, "Color", &Record::Color).unless(256),
         rows::real(38, "Elevation0", &Record::Elevation0).unless(0).below(1010),
         rows::integer(370, "Lineweight", &Record::Lineweight).absent_as(kByLayer).since(1016),
         rows::real(48, "LinetypeScale", &Record::LinetypeScale).unless(1.0),
         rows::integer(60, "Visibility", &Record::Visibility).unless(0),
         rows::integer(92, "ImageLength", &Record::ImageLength).unless_undefined(),
         rows::bin_data(310, "ImageData", &Record::ImageData)});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_NgEntity>() {
    static const RecordTable table("DxfSection_NgEntity",
                                   {rows::base(record_table<DxfSection_HandledObject>())});
    return table;
}

void write_extended_data(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
    const auto& applications = static_cast<const DxfSection_HandledObject&>(record).XAppData;
    if (!applications) return;
    for (const auto& data : *applications) {
        writer.WriteText(stream, 1001, data->XAppName);
        if (writer.IsPortable() && data->Groups) {
            writer.WriteGroups(stream, data->Groups);
        } else if (data->XData) {
            DxfFile_RWXData::Write(stream, writer, *data->XData);
        }
    }
}

// Any record

bool DxfFile_RWObject::ReadField(std::istream& /*stream*/, DxfFile_FileReader& reader,
                                 DxfSection_Object& /*record*/) {
    if (reader.Code() == 0) {
        reader.PushBack();
        return false;
    }
    reader.SendUnrecognized();
    return true;
}

void DxfFile_RWObject::Dump(std::ostream& stream, const DxfSection_Object& record, int level) {
    const auto* registrator = DxfFile_ObjectRegistrator::Find(record.DynamicType());
    if (registrator) registrator->Dump(stream, record, level);
}

// Application data

Ref<DxfSection_AppData> DxfFile_RWAppData::Read(std::istream& stream, DxfFile_FileReader& reader) {
    auto data = make<DxfSection_AppData>();
    for (; reader.HasGroup(); reader.Next(stream)) {
        if (!ReadField(stream, reader, *data)) break;
    }
    return data;
}

bool DxfFile_RWAppData::ReadField(std::istream& /*stream*/, DxfFile_FileReader& reader,
                                  DxfSection_AppData& data) {
    if (reader.Code() == 0) {
        reader.PushBack();
        return false;
    }
    if (reader.Code() == 102) {
        if (reader.View() == "}") return false;
        data.Name = reader.Value();
        return true;
    }
    append(data.Value, DxfSection_DxfGroup{reader.Code(), reader.Value()});
    return true;
}

void DxfFile_RWAppData::Write(std::ostream& stream, DxfFile_FileWriter& writer,
                              const DxfSection_AppData& data) {
    writer.WriteText(stream, 102, data.Name);
    writer.WriteGroups(stream, data.Value);
    writer.WriteString(stream, 102, "}");
}

void DxfFile_RWAppData::Dump(std::ostream& stream, const DxfSection_AppData& data, int level) {
    if (!data.Name.is_null()) dump_label(stream, "Name") << '"' << data.Name << "\"\n";
    dump_list(stream, "Value", data.Value, level);
}

// Extended data

Ref<DxfSection_XData> DxfFile_RWXData::Read(std::istream& stream, DxfFile_FileReader& reader, int depth) {
    auto data = make<DxfSection_XData>();
    if (is_extended(reader.Code())) data->Name = reader.Value();
    for (; reader.HasGroup(); reader.Next(stream)) {
        if (!ReadField(stream, reader, *data, depth)) break;
    }
    return data;
}

bool DxfFile_RWXData::ReadField(std::istream& stream, DxfFile_FileReader& reader, DxfSection_XData& data,
                                int depth) {
    if (is_extended(reader.Code())) {
        append(data.Value, DxfSection_DxfGroup{reader.Code(), reader.Value()});
        return true;
    }
    if (reader.Code() != 1002) {
        reader.PushBack();
        return false;
    }
    if (reader.View() == "}") return false;
    if (data.Name.is_null()) {
        data.Name = reader.Value();
    } else if (depth < kDeepestExtendedData) {
        append(data.XData, Read(stream, reader, depth + 1));
    } else {
        reader.SendFail(
            {"Extended data is nested too deep: a level is flattened at line %d", reader.LineNumber()});
    }
    return true;
}

void DxfFile_RWXData::Write(std::ostream& stream, DxfFile_FileWriter& writer, const DxfSection_XData& data) {
    writer.WriteString(stream, 1002, "{");
    writer.WriteGroups(stream, data.Value);
    if (data.XData) {
        for (const auto& level : *data.XData) Write(stream, writer, *level);
    }
    writer.WriteString(stream, 1002, "}");
}

void DxfFile_RWXData::Dump(std::ostream& stream, const DxfSection_XData& data, int level) {
    dump_list(stream, "Value", data.Value, level);
    dump_elements(stream, "XData", data.XData, level,
                  [&](const DxfSection_XData& nested, int depth) { Dump(stream, nested, depth); });
}

// Binary data

Ref<DxfSection_BinData> DxfFile_RWBinData::Read(std::istream& stream, DxfFile_FileReader& reader) {
    auto data = make<DxfSection_BinData>();
    for (; reader.HasGroup(); reader.Next(stream)) {
        if (!ReadField(stream, reader, *data)) break;
    }
    return data;
}

bool DxfFile_RWBinData::ReadField(std::istream& /*stream*/, DxfFile_FileReader& reader,
                                  DxfSection_BinData& data) {
    if (reader.Code() != 310) {
        reader.PushBack();
        return false;
    }
    append(data.Value, reader.Value());
    return true;
}

void DxfFile_RWBinData::Write(std::ostream& stream, DxfFile_FileWriter& writer,
                              const DxfSection_BinData& data) {
    if (!data.Value) return;
    for (const Text& value : *data.Value) writer.WriteText(stream, 310, value);
}

void DxfFile_RWBinData::Dump(std::ostream& stream, const DxfSection_BinData& data, int level) {
    dump_list(stream, "Value", data.Value, level);
}

}  // namespace veltrane
