// The dimension style: one row per dimension variable. A drawing without a variable means its initial value.
#include "veltrane/file/common.hpp"
#include "veltrane/file/tables.hpp"

namespace veltrane {

using namespace rows;

namespace {

constexpr int kR2000 = 1015;

/// Code 5 is a dimension variable here, so the handle stands under 105.
const RecordTable& dim_style_head() {
    static const RecordTable handled("DxfSection_HandledObject", handled_rows(105));
    static const RecordTable entry("DxfSection_TabEntry", {base(handled), marker("AcDbSymbolTableRecord")});
    return entry;
}

}  // namespace

template <>
const RecordTable& record_table<DxfSection_DimStyle>() {
    using Record = DxfSection_DimStyle;
    static const RecordTable table(
        "DxfSection_DimStyle",
        {base(dim_style_head()),
         marker("AcDbDimStyleTableRecord", "@SubclassMarker2"),
         string(2, "Name", &Record::Name),
         integer(70, "Flag", &Record::Flag),
         string(3, "DimPost", &Record::DimPost),
         string(4, "DimAPost", &Record::DimAPost),
         handle(5, "DimBLK", &Record::DimBLK),
         string(6, "DimBLK1", &Record::DimBLK1),
         string(7, "DimBLK2", &Record::DimBLK2),
         real(40, "DimScale", &Record::DimScale).absent_as(1),
         real(41, "DimASZ", &Record::DimASZ).absent_as(0.18),
         real(42, "DimEXO", &Record::DimEXO).absent_as(0.0625),
         real(43, "DimDLI", &Record::DimDLI).absent_as(0.38),
         real(44, "DimEXE", &Record::DimEXE).absent_as(0.18),
         real(45, "DimRND", &Record::DimRND),
         real(46, "DimDLE", &Record::DimDLE),
         real(47, "DimTP", &Record::DimTP),
         real(48, "DimTM", &Record::DimTM),
         real(140, "DimTXT", &Record::DimTXT).absent_as(0.18),
         real(141, "DimCEN", &Record::DimCEN).absent_as(0.09),
         real(142, "DimTSZ", &Record::DimTSZ),
         real(143, "DimALTF", &Record::DimALTF).absent_as(25.4),
         real(144, "DimLFAC", &Record::DimLFAC).absent_as(1),
         real(145, "DimTVP", &Record::DimTVP),
         real(146, "DimTFAC", &Record::DimTFAC).absent_as(1),
         real(147, "DimGAP", &Record::DimGAP).absent_as(0.09),
         real(148, "DimALTRND", &Record::DimALTRND).since(kR2000),
         integer(71, "DimTOL", &Record::DimTOL),
         integer(72, "DimLIM", &Record::DimLIM),
         integer(73, "DimTIH", &Record::DimTIH).absent_as(1),
         integer(74, "DimTOH", &Record::DimTOH).absent_as(1),
         integer(75, "DimSE1", &Record::DimSE1),
         integer(76, "DimSE2", &Record::DimSE2),
         integer(77, "DimTAD", &Record::DimTAD),
         integer(78, "DimZIN", &Record::DimZIN),
         integer(79, "DimAZIN", &Record::DimAZIN).since(kR2000),
         integer(170, "DimALT", &Record::DimALT),
         integer(171, "DimALTD", &Record::DimALTD).absent_as(2),
         integer(172, "DimTOFL", &Record::DimTOFL),
         integer(173, "DimSAH", &Record::DimSAH),
         integer(174, "DimTIX", &Record::DimTIX),
         integer(175, "DimSOXD", &Record::DimSOXD),
         integer(176, "DimCLRD", &Record::DimCLRD),
         integer(177, "DimCLRE", &Record::DimCLRE),
         integer(178, "DimCLRT", &Record::DimCLRT),
         integer(179, "DimADEC", &Record::DimADEC).since(kR2000),
         integer(270, "DimUNIT", &Record::DimUNIT).absent_as(2),
         integer(271, "DimDEC", &Record::DimDEC).absent_as(4),
         integer(272, "DimTDEC", &Record::DimTDEC).absent_as(4),
         integer(273, "DimALTU", &Record::DimALTU).absent_as(2),
         integer(274, "DimALTTD", &Record::DimALTTD).absent_as(2),
         integer(275, "DimAUNIT", &Record::DimAUNIT),
         integer(276, "DimFRAC", &Record::DimFRAC).since(kR2000),
         integer(277, "DimLUNIT", &Record::DimLUNIT).absent_as(2).since(kR2000),
         integer(278, "DimDSEP", &Record::DimDSEP).absent_as(46).since(kR2000),
         integer(279, "DimTMOVE", &Record::DimTMOVE).since(kR2000),
         integer(280, "DimJUST", &Record::DimJUST),
         integer(281, "DimSD1", &Record::DimSD1),
         integer(282, "DimSD2", &Record::DimSD2),
         integer(283, "DimTOLJ", &Record::DimTOLJ).absent_as(1),
         integer(284, "DimTZIN", &Record::DimTZIN),
         integer(285, "DimALTZ", &Record::DimALTZ),
         integer(286, "DimALTTZ", &Record::DimALTTZ),
         integer(287, "DimFIT", &Record::DimFIT).absent_as(3),
         integer(288, "DimUPT", &Record::DimUPT),
         integer(289, "DimATFIT", &Record::DimATFIT).absent_as(3).since(kR2000 + 1),
         integer(371, "DimLWD", &Record::DimLWD).absent_as(-2).since(kR2000),
         integer(372, "DimLWE", &Record::DimLWE).absent_as(-2).since(kR2000),
         handle(340, "DimTXSTY", &Record::DimTXSTY),
         handle(341, "DimLDRBLK", &Record::DimLDRBLK).since(kR2000),
         handle(342, "DimHBLK", &Record::DimHBLK).since(kR2000),
         handle(343, "DimHBLK1", &Record::DimHBLK1).since(kR2000),
         handle(344, "DimHBLK2", &Record::DimHBLK2).since(kR2000)});
    return table;
}

}  // namespace veltrane
