#include "veltrane/file/work_library.hpp"

#include "support/dxf_text.hpp"
#include "veltrane/ent/curves.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/file_probe.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

namespace veltrane {
namespace {

constexpr const char* kDrawing =
    "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|0 ENDSEC|0 SECTION|2 ENTITIES|0 LINE|8 0|10 1|0 ENDSEC|0 EOF";

class WorkLibrary : public testing::Test {
protected:
    WorkLibrary() { DxfFile::Init(); }

    /// The status, and the model that was handed back.
    int read(const std::string& name) {
        Ref<ExchangeModel> given;
        const int status = library.ReadFile(name, given, DxfFile::Protocol(), &problem);
        model = as<DxfSection_Model>(given);
        return status;
    }
    bool write(const std::string& name, const Ref<ExchangeModel>& what) {
        WriteContext context;
        context.FileName = name;
        context.Model = what;
        const bool done = library.WriteFile(context);
        report = messages(&context.Report);
        return done;
    }

    TemporaryFolder folder;
    DxfFile_WorkLibrary library;
    Ref<DxfSection_Model> model;
    Texts report;
    std::string problem;
};

TEST_F(WorkLibrary, ReadsFilesOfAnyLineEnd) {
    for (const char* line_end : {"\n", "\r\n", "\r"}) {
        ASSERT_EQ(read(folder.file("a.dxf", dxf(kDrawing, line_end))), 0);
        const auto entities = model->FindSection("ENTITIES", false);
        ASSERT_TRUE(entities && length(entities->Objects) == 1) << static_cast<int>(line_end[0]);
        const auto* line = as<DxfEnt_Line>(entities->Objects->Value(1).get());
        EXPECT_EQ(line->Layer, "0");
        EXPECT_EQ(line->Handle, 101);
        EXPECT_EQ(model->GetVariableString("$HANDSEED"), "65");
        EXPECT_EQ(model->FindByHandle(101).get(), line);
        EXPECT_FALSE(model->HasFailed());
    }
}

TEST_F(WorkLibrary, FaultyFiles) {
    struct Row {
        const char* what;
        std::string content;
        int status;
        std::size_t fails;
    };
    const Row rows[] = {{"EOF alone", "  0\nEOF\n", 0, 0},
                        {"EOF without a line end", "0\nEOF", 0, 0},
                        {"no EOF", dxf("0 SECTION|2 FOO|0 ENDSEC"), 0, 2},
                        {"no EOF, no line end", "0\nSECTION\n2\nFOO\n0\nENDSEC", 0, 0},
                        {"empty", "", 0, 2},
                        {"text", "hello\nworld\n", 0, 4},
                        {"binary", std::string("AutoCAD Binary DXF\r\n\x1A\0\0\0", 24), 1, 0}};
    for (const Row& row : rows) {
        EXPECT_EQ(read(folder.file("a.dxf", row.content)), row.status) << row.what;
        EXPECT_EQ(static_cast<bool>(model), row.status == 0) << row.what;
        if (!model) continue;
        EXPECT_EQ(model->GlobalCheck().Fails().size(), row.fails) << row.what;
        if (row.fails > 0) {
            EXPECT_EQ(model->GlobalCheck().Fails().back().text(), "Error during read of file") << row.what;
        }
    }
}

TEST_F(WorkLibrary, WhatCannotBeOpened) {
    for (const std::string& name : {folder.file("missing.dxf"), folder.path().string(), std::string()}) {
        EXPECT_EQ(read(name), 1) << name;
        EXPECT_EQ(model, nullptr);
        EXPECT_NE(problem, "");
        EXPECT_NE(problem.find(name), std::string::npos) << problem;
        EXPECT_TRUE(name.empty() || problem.find(name) == problem.rfind(name)) << "named twice: " << problem;
    }
}

TEST_F(WorkLibrary, ReadsIntoAGivenModel) {
    const auto given = make<DxfSection_Model>();
    given->AddEntity(make<DxfEnt_Line>());
    given->GlobalCheck().AddFail("of an earlier file");
    Ref<ExchangeModel> handed = given;
    ASSERT_EQ(library.ReadFile(folder.file("a.dxf", dxf(kDrawing)), handed, DxfFile::Protocol()), 0);
    EXPECT_EQ(handed, given);
    EXPECT_EQ(given->NbEntities(), 3);
    EXPECT_FALSE(given->HasFailed());
}

TEST_F(WorkLibrary, WritesForAVersion) {
    struct Row {
        const char* parameter;
        const char* version;
    };
    const Row rows[] = {{"Undef", "AC1009"}, {"R12", "AC1009"},   {"R13", "AC1012"},   {"R14", "AC1014"},
                        {"R2000", "AC1015"}, {"R2004", "AC1018"}, {"R2007", "AC1021"}, {"R2010", "AC1024"}};
    for (const Row& row : rows) {
        ASSERT_EQ(read(folder.file("a.dxf", dxf(kDrawing))), 0);
        StaticParameters::SetText("write.dxf.version", row.parameter);
        ASSERT_TRUE(write(folder.file("b.dxf"), model)) << row.parameter;
        const std::string text = short_form(TemporaryFolder::content(folder.file("b.dxf")));
        EXPECT_NE(text.find(std::string("9 $ACADVER|1 ") + row.version + "|"), std::string::npos) << text;
        EXPECT_EQ(text.find("370 ") != std::string::npos, std::string(row.version) > "AC1015") << text;
        EXPECT_TRUE(text.ends_with("|0 ENDSEC|0 EOF"));
    }
    StaticParameters::SetText("write.dxf.version", "R14");
}

TEST_F(WorkLibrary, FilesSuitOtherPrograms) {
    struct Row {
        const char* version;
        const char* in;
        const char* out;
    };
    const Row rows[] = {
        // Undefined values are left out, and -1 is written where it is a value.
        {"AC1018", "0 VIEW|5 A|2 v", "281 0|72 0|0 ENDSEC"},
        {"AC1018", "0 VERTEX|5 A|370 -1|71 -1", "|370 -1|100 AcDbVertex|10 0.0|20 0.0|30 0.0|70 0|71 -1|"},
        // What a drawing lacks keeps the meaning that it has without.
        {"AC1018", "0 POINT|5 A|8 0", "|8 0|370 -1|"},
        {"AC1018", "0 LAYER|5 A|2 l|70 0|62 7", "|290 1|390 0|"},
        {"AC1018", "0 MTEXT|5 A|11 0|21 1|31 0", "|11 0.0|21 1.0|31 0.0|44 1.0|0 ENDSEC"},
        // Extended data goes back as it came, before the records that a record contains.
        {"AC1018", "0 POLYLINE|5 A|1001 X|1002 {|1070 1|1002 }|1000 b|0 VERTEX|5 B|0 SEQEND|5 C",
         "|1001 X|1002 {|1070 1|1002 }|1000 b|0 VERTEX|"},
        {"AC1032", "0 MTEXT|5 A|8 0|10 1|20 2|101 Embedded Object|70 1|10 9|1001 X|1070 1",
         "|44 1.0|101 Embedded Object|70 1|10 9|1001 X|1070 1|0 ENDSEC"},
        {"AC1024", "0 ACDSRECORD|90 1|2 ID|280 10|320 2F|94 2|310 0A0B",
         "0 ACDSRECORD|90 1|2 ID|280 10|320 2F|94 2|310 0A0B|0 ENDSEC"},
        {"AC1018", "0 SORTENTSTABLE|5 A|331 B|5 C|331 D|5 E", "|331 B|5 C|331 D|5 E|"},
        // The first free handle, also beside records that are kept whole.
        {"AC1018", "0 THING|5 1AF|0 POINT|5 A", "9 $HANDSEED|5 1B0|"},
    };
    StaticParameters::SetText("write.dxf.version", "Undef");
    for (const Row& row : rows) {
        const std::string in = std::string("0 SECTION|2 HEADER|9 $ACADVER|1 ") + row.version +
                               "|0 ENDSEC|0 SECTION|2 X|" + row.in + "|0 ENDSEC|0 EOF";
        ASSERT_EQ(read(folder.file("a.dxf", dxf(in))), 0);
        ASSERT_TRUE(write(folder.file("b.dxf"), model));
        const std::string text = short_form(TemporaryFolder::content(folder.file("b.dxf")));
        EXPECT_NE(text.find(row.out), std::string::npos) << row.out << "\nin " << text;
    }
    StaticParameters::SetText("write.dxf.version", "R12");
    for (const char* setting : {"On", "Off"}) {
        StaticParameters::SetText("write.dxf.r12.markers", setting);
        ASSERT_TRUE(write(folder.file("b.dxf"), model));
        EXPECT_EQ(TemporaryFolder::content(folder.file("b.dxf")).find("100\n") == std::string::npos,
                  std::string("Off") == setting);
    }
    StaticParameters::SetText("write.dxf.r12.markers", "On");
    StaticParameters::SetText("write.dxf.version", "R14");
}

TEST_F(WorkLibrary, WhatCannotBeWritten) {
    ASSERT_EQ(read(folder.file("a.dxf", dxf(kDrawing))), 0);
    for (const std::string& name :
         {std::string("/dev/full"), folder.file("no/such/folder.dxf"), folder.path().string()}) {
        EXPECT_FALSE(write(name, model)) << name;
        ASSERT_EQ(report.size(), 1u) << name;
        EXPECT_NE(report[0].find(name), std::string::npos) << report[0];
    }
    EXPECT_FALSE(write(folder.file("b.dxf"), nullptr));
    EXPECT_FALSE(std::filesystem::exists(folder.file("b.dxf")));
}

TEST_F(WorkLibrary, AFolderThatCannotBeWrittenTo) {
    if (::geteuid() == 0) GTEST_SKIP() << "whoever is root may write everywhere";
    ASSERT_EQ(read(folder.file("a.dxf", dxf(kDrawing))), 0);
    std::filesystem::permissions(folder.path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    EXPECT_FALSE(write(folder.file("b.dxf"), model));
    EXPECT_EQ(report.size(), 1u);
    std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_all);
}

TEST_F(WorkLibrary, DumpEntity) {
    const auto drawing = make<DxfSection_Model>();
    const auto line = make<DxfEnt_Line>();
    line->Handle = 0x2F;
    const std::string rule(20, '=');
    const auto dump = [&](const Transient* record, int level, const ExchangeModel* of) {
        std::ostringstream out;
        library.DumpEntity(of, DxfFile::Protocol(), record, out, level);
        return out.str();
    };
    EXPECT_EQ(dump(line.get(), 0, drawing.get()), rule + "\nType: DxfEnt_Line\n" + rule);
    EXPECT_EQ(dump(line.get(), 1, drawing.get()), rule + "\nType: DxfEnt_Line\n#2F" + rule);
    const std::string full = dump(line.get(), 2, drawing.get());
    EXPECT_TRUE(
        full.starts_with(rule + "\nType: DxfEnt_Line\n#2F" + rule +
                         "\nInherits DxfSection_Entity\n@SubclassMarker: \tAcDbLine\nThickness: \t0\n"))
        << full;
    EXPECT_TRUE(full.ends_with("ExtrusionDir: \t(0, 0, 1)\n" + rule)) << full;
    EXPECT_NE(dump(line.get(), 4, drawing.get()).find("Handle: \t47\n"), std::string::npos);
    EXPECT_EQ(dump(make<DxfSection_Variable>().get(), 4, drawing.get()),
              rule + "\nType: DxfSection_Variable (not a DXF entity)");
    EXPECT_EQ(dump(line.get(), 4, nullptr), "");
    EXPECT_EQ(library.DefaultDumpLevel(), 2);
    EXPECT_EQ(library.MaxDumpLevel(), 4);
    EXPECT_EQ(library.DumpHelp(4), "Full Description (arrays are expanded)");
}

TEST(FileProbe, LineDelimiter) {
    const TemporaryFolder folder;
    struct Row {
        std::string content;
        char delimiter;
    };
    const Row rows[] = {{"0\nSECTION\n", '\n'},
                        {"0\r\nSECTION\r\n", '\n'},
                        {"0\rSECTION\r", '\r'},
                        {"0\r\r\nSECTION\n", '\n'},  // only one character follows the first CR
                        {"0\r\r\r\nSECTION\n", '\r'},
                        {"0", '\n'},
                        {std::string(1990, ' ') + "0\rSECTION", '\r'},
                        {std::string(1997, ' ') + "0\rSECTION", '\n'}};
    for (const Row& row : rows) {
        EXPECT_EQ(probe_file(folder.file("a.dxf", row.content)).delimiter, row.delimiter)
            << row.content.substr(0, 20);
    }
}

}  // namespace
}  // namespace veltrane
