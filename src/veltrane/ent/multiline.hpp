// MLINE with its vertices, and MLINESTYLE with its elements. Counts are kept as the file states them; the
// lists hold what came.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

/// How one element of the style is drawn from a vertex to the next.
struct DxfEnt_MLineVertexParams : Typed<DxfEnt_MLineVertexParams, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_MLineVertexParams";

    std::int32_t NbParams = kUndefinedInteger;
    std::int32_t NbFills = 0;
    Ref<Sequence<double>> Params;
    Ref<Sequence<double>> Fills;
};

struct DxfEnt_MLineVertex : Typed<DxfEnt_MLineVertex, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_MLineVertex";

    kernel::Point Vertices{kUndefinedReal, kUndefinedReal, kUndefinedReal};  ///< the position
    kernel::Vector SegmentDir{0, 0, 0};
    kernel::Vector MiterDir{0, 0, 0};
    Ref<Sequence<Ref<DxfEnt_MLineVertexParams>>> Params;  ///< one for each element of the style
};

struct DxfEnt_MLine : Typed<DxfEnt_MLine, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_MLine";

    Text StyleName;
    double Scale = 0;
    std::int32_t StyleID = 0;        ///< handle
    std::int32_t Justification = 0;  ///< 0 top, 1 zero, 2 bottom
    std::int32_t Flags = 0;          ///< bits: 1 has vertices, 2 closed, 4 no start caps, 8 no end caps
    std::int32_t NbVertices = 0;
    std::int32_t NbStyles = 0;  ///< elements of the style
    kernel::Point StartPoint{0, 0, 0};
    kernel::Vector ExtrusionDir{0, 0, 1};
    Ref<Sequence<Ref<DxfEnt_MLineVertex>>> Vertices;
};

struct DxfEnt_MLineStyleElement : Typed<DxfEnt_MLineStyleElement, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_MLineStyleElement";

    double Offset = kUndefinedReal;
    std::int32_t Color = 0;
    Text Linetype = "BYLAYER";
};

struct DxfEnt_MLineStyle : Typed<DxfEnt_MLineStyle, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_MLineStyle";

    Text MlineStyleName;
    Text Description;
    std::int32_t Flags = 0;
    std::int32_t FillColor = 256;
    double StartAngle = 90;  ///< degrees
    double EndAngle = 90;    ///< degrees
    Ref<Sequence<Ref<DxfEnt_MLineStyleElement>>> Elements;
    std::int32_t ElementsNumber = 0;
};

}  // namespace veltrane
