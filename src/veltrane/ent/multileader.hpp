// MULTILEADER and the blocks inside it: one context, its leader, the leader's lines. Angles are in radians,
// as in the file; handles name styles, line types and blocks.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

struct DxfEnt_MLeaderLine : Typed<DxfEnt_MLeaderLine, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_MLeaderLine";

    kernel::Point Vertex{0, 0, 0};     ///< the last one that came
    std::int32_t BreakPointIndex = 0;  ///< read only
    std::int32_t LeaderLineIndex = 0;
};

struct DxfEnt_MLeaderLeader : Typed<DxfEnt_MLeaderLeader, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_MLeaderLeader";

    bool HasSetLastLeaderLinePoint = false;
    bool HasSetDoglegVector = false;
    std::int32_t LeaderBranchIndex = 0;
    double DoglegLength = 0;
    kernel::Point LastLeaderLinePoint{0, 0, 0};
    kernel::Vector DoglegVector{0, 0, 0};
    Ref<Sequence<Ref<DxfEnt_MLeaderLine>>> LeaderLines;
};

/// What the multileader shows at one scale of annotations.
struct DxfEnt_MLeaderContext : Typed<DxfEnt_MLeaderContext, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_MLeaderContext";

    double ContentScale = 0;
    kernel::Point ContentBasePoint{0, 0, 0};
    double TextHeight = 0;
    double ArrowheadSize = 0;
    double LandingGap = 0;
    bool HasMText = false;
    bool IsTextBackgroundColorOn = false;
    bool IsTextBackgroundFillOn = false;
    bool UseTextAutoHeight = false;
    bool TextColumnFlowReversed = false;
    bool TextUseWordBreak = false;
    bool HasBlock = false;
    bool MLeaderPlaneNormalReversed = false;
    Text DefaultTextContents;
    kernel::Vector TextNormalDirection{0, 0, 1};
    kernel::Point TextLocation{0, 0, 0};
    kernel::Vector TextDirection{0, 0, 1};
    double TextRotation = 0;
    double TextWidth = 0;
    double TextHeight2 = 0;
    double TextLineSpacingFactor = 0;
    std::int32_t TextStyleId = 0;
    std::int32_t TextLineSpacingStyle = 0;
    std::int32_t TextColor = 0;
    std::int32_t TextAttachment = 0;
    std::int32_t TextFlowDirection = 0;
    std::int32_t TextBackgroundColor = 0;
    std::int32_t TextBackgroundTransparency = 0;
    std::int32_t TextColumnType = 0;
    double TextBackgroundScaleFactor = 0;
    double TextColumnWidth = 0;
    double TextColumnGutterWidth = 0;
    kernel::Point MLeaderPlaneOriginPoint{0, 0, 0};
    kernel::Vector MLeaderPlaneXAxisDirection{1, 0, 0};
    kernel::Vector MLeaderPlaneYAxisDirection{0, 1, 0};
    Ref<DxfEnt_MLeaderLeader> LeaderData;
};

struct DxfEnt_MLeader : Typed<DxfEnt_MLeader, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_MLeader";

    Ref<DxfEnt_MLeaderContext> ContextData;
    std::int32_t LeaderStyleId = 0;
    std::int32_t PropertyOverrideFlag = 0;
    std::int32_t LeaderLineType = 0;  ///< 0 none, 1 straight lines, 2 spline
    std::int32_t LeaderLineColor = 7;
    std::int32_t LeaderLineTypeId = 0;
    std::int32_t LeaderLineWeight = 0;
    double DoglegLength = 0;
    double ArrowheadSize = 0;
    std::int32_t ContentType = 0;  ///< 0 none, 1 block, 2 text, 3 tolerance
    std::int32_t TextStyleId = 0;
    std::int32_t TextLeftAttachmentPoint = 0;
    std::int32_t TextRightAttachmentPoint = 0;
    std::int32_t TextAngleType = 0;
    std::int32_t TextAlignmentType = 0;
    std::int32_t TextColor = 0;
    std::int32_t BlockContentColor = 0;
    kernel::Vector BlockContentScale{1, 1, 1};
    double BlockContentRotation = 0;
    std::int32_t BlockContentConnectionType = 0;
    std::int32_t TextAlignInIpe = 0;
    std::int32_t TextAttachmentPoint = 0;
    bool EnableLanding = false;
    bool EnableDogleg = false;
    bool EnableFrameText = false;
    bool EnableAnnotationScale = false;
    bool TextDirectionNegative = false;
};

}  // namespace veltrane
