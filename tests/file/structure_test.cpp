#include "veltrane/file/structure.hpp"

#include "support/dxf_text.hpp"
#include "veltrane/ent/curves.hpp"
#include "veltrane/ent/inserts.hpp"
#include "veltrane/file/common.hpp"
#include "veltrane/section/block.hpp"
#include "veltrane/section/tables.hpp"

#include <gtest/gtest.h>

#include <chrono>

namespace veltrane {
namespace {

Ref<DxfSection_DxfFile> root_of(TextReader& from) {
    from.next();
    return DxfFile_RWDxfFile::Read(from.stream, from.reader);
}

std::string written_root(const DxfSection_DxfFile& root) {
    return written_by(1015, [&](std::ostream& out, DxfFile_FileWriter& writer) {
        DxfFile_RWDxfFile::Write(out, writer, root);
    });
}

TEST(Structure, FilesAndTheirMessages) {
    constexpr const char* kNoCode = "fail: Group code is not an integer value";
    struct Row {
        const char* what;
        std::string text;
        std::string written;  ///< in the short notation
        Texts messages;       ///< of the file as a whole
    };
    const Row rows[] = {
        {"EOF alone", dxf("0 EOF"), "0 EOF", {}},
        {"nothing",
         "",
         "0 EOF",
         {kNoCode,
          "warning: DxfFile_RWDxfFile: Unrecognized group (code -1) skipped at "
          "line 1"}},
        {"comments",
         dxf("999 a|999 |0 SECTION|2 FOO|999 b|0 ENDSEC|0 EOF"),
         "999 a|999 |0 SECTION|999 b|2 FOO|0 ENDSEC|0 EOF",
         {}},
        {"what follows EOF is not read", dxf("0 EOF|0 SECTION|2 FOO"), "0 EOF", {}},
        {"any section name",
         dxf("0 SECTION|2 FOO|0 BAR|1 x|0 ENDSEC|0 EOF"),
         "0 SECTION|2 FOO|0 BAR|1 x|0 ENDSEC|0 EOF",
         {}},
        {"records at the top", dxf("0 BAR|5 1|330 2|100 x|1 |0 EOF"), "0 BAR|5 1|330 2|100 x|1 |0 EOF", {}},
        {"loose groups",
         dxf("8 a|0 EOF"),
         "0 EOF",
         {"warning: DxfFile_RWDxfFile: Unrecognized group (code 8) skipped at line 2"}},
        {"an end without a beginning", dxf("0 ENDSEC|0 ENDTAB|0 EOF"), "0 ENDSEC|0 ENDTAB|0 EOF", {}},
        {"no EOF, section closed",
         dxf("0 SECTION|2 FOO|0 ENDSEC"),
         "0 SECTION|2 FOO|0 ENDSEC|0 EOF",
         {kNoCode, "warning: DxfFile_RWDxfFile: Unrecognized group (code -1) skipped at line 7"}},
        {"a table and a block cut short",
         dxf("0 SECTION|2 TABLES|0 TABLE|2 APPID|70 1|0 APPID|2 A|70 0|0 BLOCK|2 b") + "0",
         "0 SECTION|2 TABLES|0 TABLE|2 APPID|5 0|70 1|"
         "0 APPID|5 0|100 AcDbSymbolTableRecord|100 AcDbRegAppTableRecord|2 A|70 0|"
         "0 BLOCK|5 0|100 AcDbEntity|100 AcDbBlockBegin|2 b|70 0|10 0.0|20 0.0|30 0.0|"
         // The last code line was a 0 without a value, so that the group before stands for it once more.
         "0 b|0 ENDBLK|5 0|100 AcDbEntity|100 AcDbBlockEnd|0 ENDTAB|0 ENDSEC|0 EOF",
         {}},
    };
    for (const Row& row : rows) {
        TextReader from(row.text);
        const auto root = root_of(from);
        EXPECT_EQ(short_form(written_root(*root)), row.written) << row.what;
        EXPECT_EQ(from.global(), row.messages) << row.what;
    }
}

TEST(Structure, TheTree) {
    TextReader from(
        dxf("0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $EXTMIN|10 1|20 2|30 3|999 inside|9 $X|0 ENDSEC|"
            "0 SECTION|2 TABLES|90 7|0 TABLE|2 LAYER|70 0|0 ENDTAB|0 ENDSEC|"
            "0 SECTION|2 BLOCKS|0 BLOCK|2 b|0 LINE|5 1|0 LINE|5 2|0 ENDBLK|5 3|8 ends|0 ENDSEC|0 EOF"));
    const auto root = root_of(from);
    ASSERT_EQ(length(root->Sections), 3);
    const auto* header = as<DxfSection_Section>(root->Sections->Value(1).get());
    ASSERT_EQ(length(header->Variables), 3);
    EXPECT_EQ(header->Variables->Value(2)->Name, "$EXTMIN");
    ASSERT_EQ(length(header->Variables->Value(2)->Value), 4) << "every group up to the next 9 or 0";
    EXPECT_EQ(header->Variables->Value(2)->Value->Value(3).Code, 30);
    EXPECT_EQ(header->Variables->Value(3)->Value, nullptr);
    EXPECT_EQ(header->Objects, nullptr);

    const auto* tables = as<DxfSection_Section>(root->Sections->Value(2).get());
    const auto* table = as<DxfSection_Table>(tables->Objects->Value(1).get());
    EXPECT_EQ(table->Objects, nullptr);
    EXPECT_EQ(tables->GetSubObjects(), tables->Objects);
    EXPECT_EQ(from.of(tables),
              Texts{"warning: DxfFile_RWObject: Unrecognized group (code 90) skipped at line 28"});

    const auto* blocks = as<DxfSection_Section>(root->Sections->Value(3).get());
    const auto* block = as<DxfSection_Block>(blocks->Objects->Value(1).get());
    EXPECT_EQ(length(block->GetSubObjects()), 2);
    EXPECT_EQ(block->EndMarker->Layer, "ends");
    EXPECT_EQ(block->Objects->Value(1)->GetSubObjects(), nullptr);
    // The record list: each record as its reading began, a container before its contents.
    const Transient* order[] = {header,
                                tables,
                                table,
                                blocks,
                                block,
                                block->Objects->Value(1).get(),
                                block->Objects->Value(2).get(),
                                block->EndMarker.get()};
    EXPECT_EQ(from.model->NbEntities(), 8);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(from.model->Number(order[i]), i + 1);
    EXPECT_EQ(from.reader.CurrentObject(), nullptr);
}

TEST(Structure, AttributesStandBesideTheirInsert) {
    TextReader from(
        dxf("0 SECTION|2 ENTITIES|0 INSERT|66 1|2 b|0 ATTRIB|2 A|0 ATTRIB|2 B|0 SEQEND|0 ENDSEC|0 EOF"));
    const auto root = root_of(from);
    const auto* entities = as<DxfSection_Section>(root->Sections->Value(1).get());
    EXPECT_EQ(length(entities->Objects), 4);
    EXPECT_EQ(as<DxfEnt_Insert>(entities->Objects->Value(1).get())->AttrFollowFlag, 1);
    EXPECT_EQ(as<DxfEnt_Attrib>(entities->Objects->Value(3).get())->AttributeTag, "B");
}

TEST(Structure, ThumbnailGroupsAreSkippedWithAWarningEach) {
    TextReader from(dxf("0 SECTION|2 THUMBNAILIMAGE|90 2|310 00FF|0 ENDSEC|0 EOF"));
    const auto root = root_of(from);
    EXPECT_EQ(from.of(root->Sections->Value(1).get()).size(), 2u);
    auto image = make<DxfSection_ThumbNailImage>();
    std::istringstream stream(dxf("0 x|90 2|310 00|310 FF|0 EOF"));
    DxfFile_FileReader reader(from.model);
    reader.Next(stream);
    image = DxfFile_RWThumbNailImage::Read(stream, reader);
    EXPECT_EQ(image->BytesNumber, 2);
    EXPECT_EQ(length(image->ImageData->Value), 2);
    const std::string text = written_by(1015, [&](std::ostream& out, DxfFile_FileWriter& writer) {
        DxfFile_RWThumbNailImage::Write(out, writer, *image);
    });
    EXPECT_EQ(short_form(text), "90 2|310 00|310 FF");
}

TEST(Structure, RecordsOfTheAcdsSection) {
    const auto record = as<DxfSection_AcDsRecord>(record_of("0 ACDSRECORD|2 ID|2 Data|320 2F|94 2|310 0A0B"));
    ASSERT_EQ(length(record->Names), 2);
    EXPECT_EQ(record->Names->Value(2), "Data");
    EXPECT_EQ(record->EntityHandle, 0x2F);
    ASSERT_TRUE(record->Data);
    EXPECT_EQ(record->Data->items(), (std::vector<std::uint8_t>{10, 11}));
}

// Application data and extended data

TEST(Structure, PiecesOfHandledRecords) {
    struct Row {
        const char* groups;
        std::string app_data;  ///< name and count of groups of each list
        std::string x_data;    ///< the tree of each application's data
        std::size_t warnings;
    };
    const std::function<std::string(const DxfSection_XData&)> tree = [&](const DxfSection_XData& level) {
        std::string text = level.Name.str() + ":" + std::to_string(length(level.Value));
        if (!level.XData) return text;
        for (const auto& nested : *level.XData) text += "(" + tree(*nested) + ")";
        return text;
    };
    const Row rows[] = {
        {"102 {ACAD_REACTORS|330 1|102 }|62 5", "{ACAD_REACTORS:1 ", "", 0},
        {"102 {A|330 1|330 2|102 }|102 {B|102 }|62 5", "{A:2 {B:0 ", "", 0},
        {"102 {A|102 {B|1 x|102 }|62 5", "{B:1 ", "", 0},
        {"102 }|62 5", ":0 ", "", 0},
        {"62 5|102 {A|1 x", "{A:1 ", "", 0},  // not closed: it ends with the record
        {"62 5|1001 ACAD|1000 s|1002 {|1070 5|1002 }", "", "ACAD=s:1({:1) ", 0},
        {"62 5|1001 ACAD", "", "ACAD=:0 ", 0},
        {"62 5|1001 A|1000 s|1001 B|1071 7|1010 1|1020 2|1030 3", "", "A=s:1 B=7:4 ", 0},
        {"1001 A|1002 {|1070 5|1002 }|62 5", "", "A={:1 ", 0},
        {"1001 A|1002 {|1070 5|1002 }|1070 6|62 5", "", "A={:1 ", 0},  // kept as a group alone
        {"1001 A|1070 1|1002 {|1070 2|1002 {|1070 3|1002 }|1002 }|1002 {|1070 4|62 5", "",
         "A=1:1({:1({:1))({:1) ", 0},
        {"1000 loose|62 5", "", "", 0},
        {"1070 5|62 5", "", "", 1},
    };
    for (const Row& row : rows) {
        TextReader from(dxf(std::string("0 LINE|") + row.groups) + "0\nEOF\n");
        const auto line = as<DxfEnt_Line>(record_of(from));
        std::string app_data, x_data;
        if (line->AppData) {
            for (const auto& list : *line->AppData) {
                app_data += list->Name.str() + ":" + std::to_string(length(list->Value)) + " ";
            }
        }
        if (line->XAppData) {
            for (const auto& data : *line->XAppData)
                x_data += data->XAppName.str() + "=" + tree(*data->XData) + " ";
        }
        EXPECT_EQ(app_data, row.app_data) << row.groups;
        EXPECT_EQ(x_data, row.x_data) << row.groups;
        EXPECT_EQ(line->Color, 5) << row.groups << ": the groups around it are the record's";
        EXPECT_EQ(from.of(line.get()).size(), row.warnings) << row.groups;
        EXPECT_EQ(from.reader.View(), "EOF");
    }
    EXPECT_EQ(as<DxfEnt_Line>(record_of("0 LINE|1000 loose"))->XDataName, "loose");
}

TEST(Structure, ExtendedDataIsWrittenLevelByLevel) {
    std::istringstream stream(dxf("1001 A|1070 1|1002 {|1070 2|1002 }|1070 3|0 EOF"));
    DxfFile_FileReader reader(make<DxfSection_Model>());
    reader.Next(stream);
    reader.Next(stream);
    const auto data = DxfFile_RWXData::Read(stream, reader);
    const std::string text = written_by(1015, [&](std::ostream& out, DxfFile_FileWriter& writer) {
        DxfFile_RWXData::Write(out, writer, *data);
    });
    EXPECT_EQ(short_form(text), "1002 {|1070 1|1070 3|1002 {|1070 2|1002 }|1002 }");
}

// Nesting

TEST(Structure, NestingOfAnyDepthIsBoundedAndKept) {
    struct Row {
        const char* begin;
        const char* middle;
        const char* end;
        bool whole;  ///< all groups stand in what is written
    };
    constexpr int kDepth = 200'000;
    const Row rows[] = {{"0 SECTION|2 FOO", "0 BAR|1 x", "0 ENDSEC", true},
                        {"0 BLOCK|2 b", "0 BAR|1 x", "0 ENDBLK", true},
                        {"0 TABLE|2 LAYER", "0 BAR|1 x", "0 ENDTAB", true},
                        {"0 LINE|1001 A|1070 1", "1002 {|1070 2", "1002 }", false}};
    for (const Row& row : rows) {
        const bool extended = !row.whole;
        std::string text = extended ? dxf(row.begin) : "";
        for (int i = 0; i < kDepth; ++i) text += dxf(extended ? row.middle : row.begin);
        if (!extended) text += dxf(row.middle);
        for (int i = 0; i < kDepth; ++i) text += dxf(row.end);
        const auto start = std::chrono::steady_clock::now();
        std::string again;
        {
            TextReader from(text + dxf("0 EOF"));
            const auto root = root_of(from);
            EXPECT_TRUE(from.reader.NoError());
            EXPECT_TRUE(from.model->HasFailed()) << "what was flattened is told";
            again = written_root(*root);
        }
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        EXPECT_LT(seconds.count(), 60) << row.begin;
        if (row.whole) {
            const auto count = [](const std::string& in, const std::string& what) {
                std::size_t found = 0;
                for (std::size_t at = 0; (at = in.find(what, at)) != std::string::npos; ++at) ++found;
                return found;
            };
            for (const char* group : {row.begin, row.end}) {
                const std::string value =
                    std::string(group).substr(2, std::string(group).find('|') - 2) + "\n";
                EXPECT_EQ(count(again, "\n" + value), static_cast<std::size_t>(kDepth)) << value;
            }
            EXPECT_EQ(count(again, "\nBAR\n"), 1u);
        }
    }
}

}  // namespace
}  // namespace veltrane
