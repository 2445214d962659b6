// Data of other programs inside a drawing: ACAD_PROXY_ENTITY, ACAD_PROXY_OBJECT, OLEFRAME, OLE2FRAME and
// VBA_PROJECT. Lengths are kept as the file states them; the data is what came.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

struct DxfEnt_AcadProxyEntity : Typed<DxfEnt_AcadProxyEntity, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_AcadProxyEntity";

    std::int32_t AppEntID = 0;
    std::int32_t GraphDataLen = kUndefinedInteger;  ///< in bytes
    Ref<DxfSection_BinData> GraphData;
    std::int32_t EntDataLen = kUndefinedInteger;  ///< in bits
    Ref<DxfSection_BinData> EntData;
    // Room for one handle of each kind of reference.
    std::int32_t ObjectID1 = kUndefinedInteger;
    std::int32_t ObjectID2 = kUndefinedInteger;
    std::int32_t ObjectID3 = kUndefinedInteger;
    std::int32_t ObjectID4 = kUndefinedInteger;
    std::int32_t DrawingFormat = 0;
    std::int32_t DataFormat = 0;  ///< 0 as in binary drawings, 1 as in DXF
};

struct DxfEnt_AcadProxyObject : Typed<DxfEnt_AcadProxyObject, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_AcadProxyObject";
    static constexpr std::int32_t kProxyObject = 499;

    std::int32_t ProxyObjectID = kProxyObject;
    std::int32_t AppObjectClassID = 0;
    std::int32_t ObjectDataSize = 0;  ///< in bits
    Ref<DxfSection_BinData> ObjectData;
    std::int32_t ObjectID1 = kUndefinedInteger;
    std::int32_t ObjectID2 = kUndefinedInteger;
    std::int32_t ObjectID3 = kUndefinedInteger;
    std::int32_t ObjectID4 = kUndefinedInteger;
    std::int32_t DrawingFormat = 0;
    std::int32_t OriginalData = 0;
};

struct DxfEnt_OLEFrame : Typed<DxfEnt_OLEFrame, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_OLEFrame";

    std::int32_t VersionNumber = 0;
    std::int32_t DataLength = 0;
    Ref<DxfSection_BinData> BinaryData;
};

struct DxfEnt_OLE2Frame : Typed<DxfEnt_OLE2Frame, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_OLE2Frame";

    std::int32_t VersionNumber = 0;
    Text SourceName;
    kernel::Point UpperLeftCorner{0, 0, 0};
    kernel::Point LowerRightCorner{0, 0, 0};
    std::int32_t OLEObjectType = 0;       ///< 1 link, 2 embedded, 3 static
    std::int32_t TileModeDescriptor = 0;  ///< 0 in a layout, 1 in model space
    std::int32_t DataLength = 0;
    Ref<DxfSection_BinData> BinaryData;
};

struct DxfEnt_VbaProject : Typed<DxfEnt_VbaProject, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_VbaProject";

    Ref<Sequence<std::int32_t>> EntSoftPointerIDs;
    std::int32_t BytesNumber = 0;
    Ref<DxfSection_BinData> Data;
};

}  // namespace veltrane
