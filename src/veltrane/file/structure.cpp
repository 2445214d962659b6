#include "veltrane/file/structure.hpp"

#include "veltrane/file/common.hpp"
#include "veltrane/file/dump_text.hpp"

namespace veltrane {

namespace {

void write_comments(std::ostream& stream, DxfFile_FileWriter& writer, const Ref<Sequence<Text>>& comments) {
    if (!comments) return;
    for (const Text& comment : *comments) writer.WriteText(stream, 999, comment);
}

// Sections

bool read_variable(std::istream& stream, DxfFile_FileReader& reader, Transient& section) {
    append(static_cast<DxfSection_Section&>(section).Variables, DxfFile_RWVariable::Read(stream, reader));
    return true;
}

void write_variables(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& section) {
    const auto& variables = static_cast<const DxfSection_Section&>(section).Variables;
    if (!variables) return;
    for (const auto& variable : *variables) DxfFile_RWVariable::Write(stream, writer, *variable);
}

void dump_variables(std::ostream& stream, const Transient& section, int level) {
    dump_elements(stream, "Variables", static_cast<const DxfSection_Section&>(section).Variables, level,
                  [&](const DxfSection_Variable& variable, int depth) {
                      DxfFile_RWVariable::Dump(stream, variable, depth);
                  });
}

/// The records of the section; ENDSEC ends it and is consumed.
bool read_section_record(std::istream& stream, DxfFile_FileReader& reader, Transient& section) {
    if (reader.View() == "ENDSEC") return false;
    append(static_cast<DxfSection_Section&>(section).Objects, reader.ReadObject(stream));
    return true;
}

void write_section_records(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& section) {
    const auto& records = static_cast<const DxfSection_Section&>(section).Objects;
    if (records) {
        for (const auto& record : *records) {
            if (record) writer.WriteObject(stream, *record);
        }
    }
    writer.WriteString(stream, 0, "ENDSEC");
}

void dump_section_records(std::ostream& stream, const Transient& section, int level) {
    dump_elements(
        stream, "Objects", static_cast<const DxfSection_Section&>(section).Objects, level,
        [&](const DxfSection_Object& record, int depth) { DxfFile_RWObject::Dump(stream, record, depth); });
}

// Records of the ACDSDATA section

bool read_record_data(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    static_cast<DxfSection_AcDsRecord&>(record).Data = reader.ReadBinData(stream);
    return true;
}

/// The record stands for its base here: opened at each level above 0 once more.
void dump_record_base(std::ostream& stream, const Transient& record, int level) {
    stream << "Inherits DxfSection_Object\n";
    if (level <= 0) return;
    stream << "{\n";
    dump_fields(record_table<DxfSection_AcDsRecord>(), stream, record, level - 1);
    stream << "}\n";
}

void write_record_groups(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
    if (writer.IsPortable())
        writer.WriteGroups(stream, static_cast<const DxfSection_AcDsRecord&>(record).Groups);
}

void dump_record_data(std::ostream& stream, const Transient& record, int /*level*/) {
    const auto& data = static_cast<const DxfSection_AcDsRecord&>(record).Data;
    dump_label(stream, "Data");
    if (data) {
        stream << "[" << data->Length() << " bytes]\n";
    } else {
        stream << "<NOT DEFINED>\n";
    }
}

}  // namespace

template <>
const RecordTable& record_table<DxfSection_Section>() {
    using Record = DxfSection_Section;
    static const RecordTable table(
        "DxfSection_Section",
        {rows::strings(999, "Comment", &Record::Comment), rows::string(2, "Name", &Record::Name),
         rows::piece(9, {&read_variable, &write_variables, &dump_variables}),
         rows::piece(0, {&read_section_record, &write_section_records, &dump_section_records})});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_Class>() {
    using Record = DxfSection_Class;
    static const RecordTable table(
        "DxfSection_Class",
        {rows::string(1, "DXFName", &Record::DXFName), rows::string(2, "CPPName", &Record::CPPName),
         rows::string(3, "APPName", &Record::APPName), rows::integer(90, "ProxyFlag", &Record::ProxyFlag),
         rows::integer(280, "WasAProxy", &Record::WasAProxy),
         rows::integer(281, "IsAnEntity", &Record::IsAnEntity)});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_ThumbNailImage>() {
    using Record = DxfSection_ThumbNailImage;
    static const RecordTable table("DxfSection_ThumbNailImage",
                                   {rows::integer(90, "BytesNumber", &Record::BytesNumber),
                                    rows::bin_data(310, "ImageData", &Record::ImageData)});
    return table;
}

template <>
Ref<DxfSection_AcDsRecord> DxfFile_RecordRW<DxfSection_AcDsRecord>::Read(std::istream& stream,
                                                                         DxfFile_FileReader& reader) {
    auto record = make<DxfSection_AcDsRecord>();
    record->Groups = make<DxfSection_HSequenceOfDxfGroup>();
    reader.CopyGroups(record->Groups.get());
    read_record(record_table<DxfSection_AcDsRecord>(), stream, reader, record);
    return record;
}

template <>
const RecordTable& record_table<DxfSection_AcDsRecord>() {
    using Record = DxfSection_AcDsRecord;
    static const RecordTable table(
        "DxfSection_AcDsRecord",
        {rows::piece(-1, {nullptr, nullptr, &dump_record_base}),
         rows::strings(2, "Names", &Record::Names).never_written(),
         rows::piece(94, {&read_record_data, nullptr, &dump_record_data}),
         rows::handle(320, "EntityHandle", &Record::EntityHandle).never_written(),
         rows::groups("Groups", &Record::Groups).not_read().never_written().not_dumped(),
         rows::piece(-1, {nullptr, &write_record_groups, nullptr})});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_UnrecognizedObject>() {
    using Record = DxfSection_UnrecognizedObject;
    static const RecordTable table(
        "DxfSection_UnrecognizedObject",
        {rows::string(-1, "Type", &Record::Type).never_written(), rows::groups("Data", &Record::Data)});
    return table;
}

// The root

Ref<DxfSection_DxfFile> DxfFile_RWDxfFile::Read(std::istream& stream, DxfFile_FileReader& reader) {
    auto root = make<DxfSection_DxfFile>();
    for (; reader.HasGroup(); reader.Next(stream)) {
        if (!ReadField(stream, reader, *root)) break;
    }
    return root;
}

bool DxfFile_RWDxfFile::ReadField(std::istream& stream, DxfFile_FileReader& reader,
                                  DxfSection_DxfFile& root) {
    if (reader.Code() == 999) {
        append(root.Comment, reader.Value());
    } else if (reader.Code() == 0) {
        if (reader.View() == "EOF") return false;
        append(root.Sections, reader.ReadObject(stream));
    } else {
        reader.SendWarning({"DxfFile_RWDxfFile: Unrecognized group (code %d) skipped at line %d",
                            reader.Code(), reader.LineNumber()});
    }
    return true;
}

void DxfFile_RWDxfFile::Write(std::ostream& stream, DxfFile_FileWriter& writer,
                              const DxfSection_DxfFile& root) {
    write_comments(stream, writer, root.Comment);
    if (root.Sections) {
        for (const auto& record : *root.Sections) {
            if (record) writer.WriteObject(stream, *record);
        }
    }
    writer.WriteString(stream, 0, "EOF");
    writer.Flush(stream);
}

void DxfFile_RWDxfFile::Dump(std::ostream& stream, const DxfSection_DxfFile& root, int level) {
    dump_list(stream, "Comment", root.Comment, level);
    dump_elements(stream, "Sections", root.Sections, level, [&](const DxfSection_Object& record, int depth) {
        DxfFile_RWObject::Dump(stream, record, depth);
    });
}

// Header variables

Ref<DxfSection_Variable> DxfFile_RWVariable::Read(std::istream& stream, DxfFile_FileReader& reader) {
    auto variable = make<DxfSection_Variable>();
    for (; reader.HasGroup(); reader.Next(stream)) {
        if (!ReadField(stream, reader, *variable)) break;
    }
    return variable;
}

bool DxfFile_RWVariable::ReadField(std::istream& /*stream*/, DxfFile_FileReader& reader,
                                   DxfSection_Variable& variable) {
    const bool next_variable = reader.Code() == 9 && !variable.Name.is_null();
    if (reader.Code() == 0 || next_variable) {
        reader.PushBack();
        return false;
    }
    if (reader.Code() == 9) {
        variable.Name = reader.Value();
    } else {
        append(variable.Value, DxfSection_DxfGroup{reader.Code(), reader.Value()});
    }
    return true;
}

void DxfFile_RWVariable::Write(std::ostream& stream, DxfFile_FileWriter& writer,
                               const DxfSection_Variable& variable) {
    if (!variable.Name.is_null()) writer.WriteText(stream, 9, variable.Name);
    writer.WriteGroups(stream, variable.Value);
}

void DxfFile_RWVariable::Dump(std::ostream& stream, const DxfSection_Variable& variable, int level) {
    if (!variable.Name.is_null()) dump_label(stream, "Name") << '"' << variable.Name << "\"\n";
    dump_list(stream, "Value", variable.Value, level);
}

}  // namespace veltrane
