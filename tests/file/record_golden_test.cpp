// Every golden pair holds, and every registered record type has one.
#include "file/golden.hpp"
#include "support/dxf_text.hpp"
#include "veltrane/file/common.hpp"
#include "veltrane/file/object_registrator.hpp"

#include <gtest/gtest.h>

#include <set>

namespace veltrane {
namespace {

/// A dump in one line: "Name=value|Name=value".
std::string short_dump(const DxfSection_Object& record, int level) {
    std::ostringstream out;
    DxfFile_RWObject::Dump(out, record, level);
    std::string text = out.str(), result;
    for (std::size_t at; (at = text.find(": \t")) != std::string::npos;) text.replace(at, 3, "=");
    for (char c : text) result += c == '\n' ? '|' : c;
    if (!result.empty()) result.pop_back();
    return result;
}

TEST(RecordGolden, EveryPairHolds) {
    for (const Golden& golden : Goldens::all()) {
        SCOPED_TRACE(golden.in);
        const auto record = record_of(golden.in);
        ASSERT_TRUE(record);
        EXPECT_EQ(short_form(written(*record, golden.version)), golden.out ? golden.out : golden.in);
        if (golden.dump) {
            EXPECT_EQ(short_dump(*record, 0), golden.dump);
        }
    }
}

TEST(RecordGolden, EveryRecordTypeHasADump) {
    DxfFile::Init();
    std::set<std::string> dumped = {"DIMSTYLE", "UNRECOGNIZED_OBJECT"};  // below, and not a name in files
    for (const Golden& golden : Goldens::all()) {
        const std::string_view in(golden.in);
        if (golden.dump) dumped.emplace(in.substr(2, in.find('|') - 2));
    }
    for (const auto* registrator : DxfFile_ObjectRegistrator::All()) {
        EXPECT_TRUE(dumped.count(registrator->Name())) << registrator->Name();
    }
}

TEST(RecordGolden, DimensionStyle) {
    struct Variable {
        const char* name;
        int code;
        int since = 0;
    };
    const Variable variables[] = {{"DimPost", 3},
                                  {"DimAPost", 4},
                                  {"DimBLK", 5},
                                  {"DimBLK1", 6},
                                  {"DimBLK2", 7},
                                  {"DimScale", 40},
                                  {"DimASZ", 41},
                                  {"DimEXO", 42},
                                  {"DimDLI", 43},
                                  {"DimEXE", 44},
                                  {"DimRND", 45},
                                  {"DimDLE", 46},
                                  {"DimTP", 47},
                                  {"DimTM", 48},
                                  {"DimTXT", 140},
                                  {"DimCEN", 141},
                                  {"DimTSZ", 142},
                                  {"DimALTF", 143},
                                  {"DimLFAC", 144},
                                  {"DimTVP", 145},
                                  {"DimTFAC", 146},
                                  {"DimGAP", 147},
                                  {"DimALTRND", 148, 1015},
                                  {"DimTOL", 71},
                                  {"DimLIM", 72},
                                  {"DimTIH", 73},
                                  {"DimTOH", 74},
                                  {"DimSE1", 75},
                                  {"DimSE2", 76},
                                  {"DimTAD", 77},
                                  {"DimZIN", 78},
                                  {"DimAZIN", 79, 1015},
                                  {"DimALT", 170},
                                  {"DimALTD", 171},
                                  {"DimTOFL", 172},
                                  {"DimSAH", 173},
                                  {"DimTIX", 174},
                                  {"DimSOXD", 175},
                                  {"DimCLRD", 176},
                                  {"DimCLRE", 177},
                                  {"DimCLRT", 178},
                                  {"DimADEC", 179, 1015},
                                  {"DimUNIT", 270},
                                  {"DimDEC", 271},
                                  {"DimTDEC", 272},
                                  {"DimALTU", 273},
                                  {"DimALTTD", 274},
                                  {"DimAUNIT", 275},
                                  {"DimFRAC", 276, 1015},
                                  {"DimLUNIT", 277, 1015},
                                  {"DimDSEP", 278, 1015},
                                  {"DimTMOVE", 279, 1015},
                                  {"DimJUST", 280},
                                  {"DimSD1", 281},
                                  {"DimSD2", 282},
                                  {"DimTOLJ", 283},
                                  {"DimTZIN", 284},
                                  {"DimALTZ", 285},
                                  {"DimALTTZ", 286},
                                  {"DimFIT", 287},
                                  {"DimUPT", 288},
                                  {"DimATFIT", 289, 1016},
                                  {"DimLWD", 371, 1015},
                                  {"DimLWE", 372, 1015},
                                  {"DimTXSTY", 340},
                                  {"DimLDRBLK", 341, 1015},
                                  {"DimHBLK", 342, 1015},
                                  {"DimHBLK1", 343, 1015},
                                  {"DimHBLK2", 344, 1015}};
    const auto is_real = [](int code) { return (code >= 40 && code <= 48) || (code >= 140 && code <= 148); };
    const auto is_text = [](int code) { return code == 3 || code == 4 || code == 6 || code == 7; };
    const std::string head =
        "0 DIMSTYLE|105 2F|330 1F|100 AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|"
        "2 iso|70 1";
    std::string in = head, dump =
                               "Inherits DxfSection_TabEntry|@SubclassMarker2=AcDbDimStyleTableRecord|"
                               "Name=\"iso\"|Flag=1";
    for (const Variable& variable : variables) {
        in += "|" + std::to_string(variable.code) + " 7";
        dump += std::string("|") + variable.name + (is_text(variable.code) ? "=\"7\"" : "=7");
    }
    const auto record = record_of(in);
    EXPECT_EQ(short_dump(*record, 0), dump);
    for (int version : {1009, 1014, 1015, 1016, 1024}) {
        std::string out = head;
        for (const Variable& variable : variables) {
            if (version < variable.since) continue;
            out += "|" + std::to_string(variable.code) + (is_real(variable.code) ? " 7.0" : " 7");
        }
        EXPECT_EQ(short_form(written(*record, version)), out) << version;
    }
}

TEST(RecordGolden, DumpsAtHigherLevels) {
    const auto line = record_of(
        "0 RAY|5 2F|102 {X|1 a|102 }|1000 loose|1001 ACAD|1000 s|1002 {|1070 5|1002 }|92 1|"
        "310 AB|1 unknown");
    EXPECT_EQ(short_dump(*line, 2),
              "Inherits DxfSection_Entity|{|"
              "Inherits DxfSection_HandledObject|{|Handle=47|AppData={ [array of 1 items] }|Owner=-1|"
              "XDataName=\"loose\"|XAppName=\"ACAD\"|XData=[DxfSection_XData]|}|"
              "@SubclassMarker=AcDbEntity|InModelSpace=0|Linetype=\"BYLAYER\"|Color=256|Elevation0=0|"
              "Lineweight=0|LinetypeScale=1|Visibility=0|ImageLength=1|"
              "ImageData={DxfSection_BinData|Value={ [array of 1 items] }|  }|}|"
              "@SubclassMarker=AcDbRay|StartPoint=(0, 0, 0)|UnitDirection=(0, 0, 0)");
    const std::string full = short_dump(*line, 9);
    for (const char* part : {"AppData={|  {DxfSection_AppData|Name=\"{X\"|Value={|  {1, a}|}|  }|}|",
                             "XAppName=\"ACAD\"|XData={DxfSection_XData|Value={|  {1000, s}|}|XData={|"
                             "  {DxfSection_XData|Value={|  {1070, 5}|}|XData=<NOT DEFINED>|  }|}|  }|",
                             "ImageData={DxfSection_BinData|Value={|  \"AB\"|}|  }|"}) {
        EXPECT_NE(full.find(part), std::string::npos) << part << "\n" << full;
    }
    EXPECT_NE(short_dump(*record_of("0 LTYPE|49 1|74 2"), 1)
                  .find("Elements={|  {DxfSection_LineTypeElement|Length=1|ElementType=2|"),
              std::string::npos);
    const std::string multileader = short_dump(
        *record_of("0 MULTILEADER|300 CONTEXT_DATA{|44 5|302 LEADER{|90 2|304 LEADER_LINE{|91 3|305 }|"
                   "303 }|301 }"),
        9);
    for (const char* part : {"|Context Data {|ContentScale=0|", "|Text Height=5|",
                             "|Leader Data {|HasSetLastLeaderLinePoint=No|", "|LeaderBranchIndex=2|",
                             "|LeaderLines={|  {DxfEnt_MLeaderLine|Vertex=(0, 0, 0)|",
                             "|Vertex=(0, 0, 0)|LeaderLineIndex=3|  }|}|}|}|LeaderStyleId=0|"}) {
        EXPECT_NE(multileader.find(part), std::string::npos) << part << "\n" << multileader;
    }
    EXPECT_EQ(short_dump(*record_of("0 SECTION|2 X|0 CLASS|1 D|0 ENDSEC"), 1),
              "Comment=<NOT DEFINED>|Name=\"X\"|Variables=<NOT DEFINED>|Objects={|  {DxfSection_Class|"
              "DXFName=\"D\"|ProxyFlag=0|WasAProxy=0|IsAnEntity=0|  }|}");
}

}  // namespace
}  // namespace veltrane