#include "veltrane/file/multileader.hpp"

#include "veltrane/file/common.hpp"

namespace veltrane {

using namespace rows;

namespace {

/// The blocks carry the common fields of entities, which no file is known to give them.
Row common_fields() {
    return base(record_table<DxfSection_Entity>()).never_written().not_dumped();
}

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_MLeaderLine>() {
    using Record = DxfEnt_MLeaderLine;
    static const RecordTable table(
        "DxfEnt_MLeaderLine",
        {common_fields(), point(10, "Vertex", &Record::Vertex).last_of_many(),
         integer(90, "BreakPointIndex", &Record::BreakPointIndex).never_written().not_dumped(),
         integer(91, "LeaderLineIndex", &Record::LeaderLineIndex)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_MLeaderLeader>() {
    using Record = DxfEnt_MLeaderLeader;
    static const RecordTable table(
        "DxfEnt_MLeaderLeader",
        {common_fields(), boolean(290, "HasSetLastLeaderLinePoint", &Record::HasSetLastLeaderLinePoint),
         boolean(291, "HasSetDoglegVector", &Record::HasSetDoglegVector),
         point(10, "LastLeaderLinePoint", &Record::LastLeaderLinePoint),
         point(11, "DoglegVector", &Record::DoglegVector),
         integer(90, "LeaderBranchIndex", &Record::LeaderBranchIndex),
         real(40, "DoglegLength", &Record::DoglegLength),
         records<&Record::LeaderLines>(304, "LeaderLines", record_table<DxfEnt_MLeaderLine>())
             .between("LEADER_LINE{", 305)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_MLeaderContext>() {
    using Record = DxfEnt_MLeaderContext;
    static const RecordTable table(
        "DxfEnt_MLeaderContext",
        {common_fields(),
         real(40, "ContentScale", &Record::ContentScale),
         point(10, "ContentBasePoint", &Record::ContentBasePoint),
         real(41, "TextHeight", &Record::TextHeight),
         real(140, "Arrowhead size", &Record::ArrowheadSize),
         real(145, "LandingGap", &Record::LandingGap),
         boolean(290, "HasMText", &Record::HasMText),
         string(304, "DefaultTextContents", &Record::DefaultTextContents),
         point(11, "TextNormalDirection", &Record::TextNormalDirection),
         handle(340, "TextStyleId", &Record::TextStyleId),
         point(12, "TextLocation", &Record::TextLocation),
         point(13, "TextDirection", &Record::TextDirection),
         real(42, "TextRotation", &Record::TextRotation),
         real(43, "TextWidth", &Record::TextWidth),
         real(44, "Text Height", &Record::TextHeight2),
         real(45, "TextLineSpacingFactor", &Record::TextLineSpacingFactor),
         integer(170, "TextLineSpacingStyle", &Record::TextLineSpacingStyle),
         integer(90, "TextColor", &Record::TextColor),
         integer(171, "TextAttachment", &Record::TextAttachment),
         integer(172, "TextFlowDirection", &Record::TextFlowDirection),
         integer(91, "TextBackgroundColor", &Record::TextBackgroundColor),
         real(141, "TextBackgroundScaleFactor", &Record::TextBackgroundScaleFactor),
         integer(92, "TextBackgroundTransparency", &Record::TextBackgroundTransparency),
         boolean(291, "IsTextBackgroundColorOn", &Record::IsTextBackgroundColorOn),
         boolean(292, "IsTextBackgroundFillOn", &Record::IsTextBackgroundFillOn),
         integer(173, "TextColumnType", &Record::TextColumnType),
         boolean(293, "UseTextAutoHeight", &Record::UseTextAutoHeight),
         real(142, "TextColumnWidth", &Record::TextColumnWidth),
         real(143, "TextColumnGutterWidth", &Record::TextColumnGutterWidth),
         boolean(294, "TextColumnFlowReversed", &Record::TextColumnFlowReversed),
         boolean(295, "TextUseWordBreak", &Record::TextUseWordBreak),
         boolean(296, "HasBlock", &Record::HasBlock),
         point(110, "MLeaderPlaneOriginPoint", &Record::MLeaderPlaneOriginPoint),
         point(111, "MLeader Plane X-Axis Direction", &Record::MLeaderPlaneXAxisDirection),
         point(112, "MLeaderPlaneYAxisDirection", &Record::MLeaderPlaneYAxisDirection),
         boolean(297, "MLeaderPlaneNormalReversed", &Record::MLeaderPlaneNormalReversed),
         record<&Record::LeaderData>(302, "Leader Data", record_table<DxfEnt_MLeaderLeader>())
             .between("LEADER{", 303)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_MLeader>() {
    using Record = DxfEnt_MLeader;
    static const RecordTable table(
        "DxfEnt_MLeader",
        {base(record_table<DxfSection_Entity>()),
         marker("AcDbMLeader"),
         record<&Record::ContextData>(300, "Context Data", record_table<DxfEnt_MLeaderContext>())
             .between("CONTEXT_DATA{", 301),
         handle(340, "LeaderStyleId", &Record::LeaderStyleId),
         integer(90, "PropertyOverrideFlag", &Record::PropertyOverrideFlag),
         integer(170, "LeaderLineType", &Record::LeaderLineType),
         integer(91, "LeaderLineColor", &Record::LeaderLineColor),
         handle(341, "LeaderLineTypeId", &Record::LeaderLineTypeId),
         integer(171, "LeaderLineWeight", &Record::LeaderLineWeight),
         boolean(290, "EnableLanding", &Record::EnableLanding),
         boolean(291, "EnableDogleg", &Record::EnableDogleg),
         real(41, "DoglegLength", &Record::DoglegLength),
         real(42, "ArrowheadSize", &Record::ArrowheadSize),
         integer(172, "ContentType", &Record::ContentType),
         handle(343, "TextStyleId", &Record::TextStyleId),
         integer(173, "TextLeftAttachmentPoint", &Record::TextLeftAttachmentPoint),
         integer(95, "TextRightAttachmentPoint", &Record::TextRightAttachmentPoint),
         integer(174, "TextAngleType", &Record::TextAngleType),
         integer(175, "TextAlignmentType", &Record::TextAlignmentType),
         integer(92, "TextColor", &Record::TextColor),
         boolean(292, "EnableFrameText", &Record::EnableFrameText),
         integer(93, "BlockContentColor", &Record::BlockContentColor),
         point(10, "BlockContentScale", &Record::BlockContentScale),
         real(43, "BlockContentRotation", &Record::BlockContentRotation),
         integer(176, "BlockContentConnectionType", &Record::BlockContentConnectionType),
         boolean(293, "EnableAnnotationScale", &Record::EnableAnnotationScale),
         boolean(294, "TextDirectionNegative", &Record::TextDirectionNegative),
         integer(178, "Text Align in IPE", &Record::TextAlignInIpe),
         integer(179, "TextAttachmentPoint", &Record::TextAttachmentPoint)});
    return table;
}

}  // namespace veltrane
