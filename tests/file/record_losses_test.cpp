// What a record has no room for is told: rows of groups in, messages out.
#include "support/dxf_text.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

struct Loss {
    const char* in;
    Texts messages;
};

const Loss kLosses[] = {
    // One value is kept of several
    {"0 IMAGE|14 1|24 2|14 3|24 4|14 5|24 6",
     {"warning: The value of group 14 at line 8 replaces an earlier one",
      "warning: The value of group 14 at line 12 replaces an earlier one"}},
    {"0 DIMASSOC|330 1F|100 AcDbDimAssoc|330 2F|1 AcDbOsnapPointRef|331 A|1 AcDbOsnapPointRef",
     {"warning: DxfFile_RWObject: Unrecognized group (code 330) skipped at line 8",
      "warning: The value of group 1 at line 14 replaces an earlier one"}},
    {"0 IMAGEDEF_REACTOR|330 1F|100 AcDbRasterImageDefReactor|330 1F", {}},
    {"0 ACAD_PROXY_OBJECT|340 0|340 0|310 AB|310 CD|161 0|310 EF",
     {"warning: The value of group 340 at line 6 replaces an earlier one",
      "warning: DxfFile_RWObject: Unrecognized group (code 161) skipped at line 12",
      "warning: The value of group 310 at line 14 replaces an earlier one"}},
    {"0 PLOTSETTINGS|100 AcDbPlotSettings|70 1|100 AcDbPlotSettings",
     {"warning: What begins with group 100 at line 8 replaces an earlier one"}},
    // Newer plot settings hold what the record does not
    {"0 LAYOUT|100 AcDbPlotSettings|75 1|76 2|77 3|147 4|100 AcDbLayout|76 5",
     {"warning: DxfFile_RWObject: Unrecognized group (code 77) skipped at line 10",
      "warning: The value of group 76 at line 16 replaces an earlier one"}},
    // A constant is written again, whatever was read
    {"0 ACAD_PROXY_ENTITY|90 498|94 7",
     {"warning: The value of group 94 at line 6 is dropped for the usual one"}},
    {"0 OLEFRAME|1 OLE|1 ole", {"warning: The value of group 1 at line 6 is dropped for the usual one"}},
    // Markers
    {"0 CIRCLE|100 anything", {}},
    {"0 XRECORD|100 AcDbXrecord|280 1|280 2|100 AcDbX",
     {"warning: DxfFile_RWObject: Unrecognized group (code 100) skipped at line 10"}},
    {"0 IDBUFFER|5 1|330 0|100 AcDbIdBuffer|330 A|330 A",
     {"warning: DxfFile_RWObject: Unrecognized group (code 100) skipped at line 8",
      "warning: DxfFile_RWObject: Unrecognized group (code 330) skipped at line 10",
      "warning: DxfFile_RWObject: Unrecognized group (code 330) skipped at line 12"}},
    // What is embedded has its own meaning of the codes
    {"0 TEXT|10 1|20 2|101 Embedded Object|70 1|10 5|20 6|1001 ACAD|1070 1",
     {"warning: An embedded object of 4 groups is skipped at line 8"}},
};

TEST(RecordLosses, AreTold) {
    for (const Loss& loss : kLosses) {
        SCOPED_TRACE(loss.in);
        TextReader from(dxf(loss.in) + "0\nEOF\n");
        const auto record = record_of(from);
        EXPECT_EQ(from.of(record.get()), loss.messages);
        EXPECT_EQ(from.global(), Texts());
    }
}

}  // namespace
}  // namespace veltrane
