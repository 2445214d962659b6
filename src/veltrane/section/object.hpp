// The group and the base classes of every record: plain data, defaults in the class.
#pragma once

#include "veltrane/base/sequence.hpp"
#include "veltrane/base/text.hpp"
#include "veltrane/base/undefined.hpp"

#include <cstdint>

namespace veltrane {

/// One group of a file: its code and its value text exactly as read.
struct DxfSection_DxfGroup {
    std::int32_t Code = -1;
    Text Value;
};
using DxfSection_HSequenceOfDxfGroup = Sequence<DxfSection_DxfGroup>;

/// Base of every record.
class DxfSection_Object : public Typed<DxfSection_Object, Transient> {
public:
    static constexpr const char* kTypeName = "DxfSection_Object";

    /// The records directly inside this one; null when it holds none.
    virtual Ref<Sequence<Ref<DxfSection_Object>>> GetSubObjects() const { return nullptr; }
};
using DxfSection_HSequenceOfObject = Sequence<Ref<DxfSection_Object>>;

/// The groups between 102 "{NAME" and 102 "}".
struct DxfSection_AppData : Typed<DxfSection_AppData, Transient> {
    static constexpr const char* kTypeName = "DxfSection_AppData";

    Text Name;  ///< value of the opening group, with its brace
    Ref<DxfSection_HSequenceOfDxfGroup> Value;
};

/// One level of extended data. The order of its groups against its nested levels is not kept.
struct DxfSection_XData : Typed<DxfSection_XData, Transient> {
    static constexpr const char* kTypeName = "DxfSection_XData";

    Text Name;  ///< value of the level's first group; set once the level has begun
    Ref<DxfSection_HSequenceOfDxfGroup> Value;
    Ref<Sequence<Ref<DxfSection_XData>>> XData;
};

/// The extended data of one application.
struct DxfSection_XAppData : Typed<DxfSection_XAppData, Transient> {
    static constexpr const char* kTypeName = "DxfSection_XAppData";

    Text XAppName;
    Ref<DxfSection_XData> XData;
    Ref<DxfSection_HSequenceOfDxfGroup> Groups;  ///< all its groups as read, in their order
};

/// Binary data as the hexadecimal text of its groups 310.
struct DxfSection_BinData : Typed<DxfSection_BinData, Transient> {
    static constexpr const char* kTypeName = "DxfSection_BinData";

    Ref<Sequence<Text>> Value;
};

/// A record with a handle. Handles are 0 or -1 when there is none, and always below 0x80000000.
struct DxfSection_HandledObject : Typed<DxfSection_HandledObject, DxfSection_Object> {
    static constexpr const char* kTypeName = "DxfSection_HandledObject";

    std::int32_t Handle = 0;
    std::int32_t Owner = kUndefinedInteger;  ///< handle of the owning record
    Ref<Sequence<Ref<DxfSection_AppData>>> AppData;
    Text XDataName;
    Ref<Sequence<Ref<DxfSection_XAppData>>> XAppData;
};

/// A graphical record, with the properties that all of them share.
struct DxfSection_Entity : Typed<DxfSection_Entity, DxfSection_HandledObject> {
    static constexpr const char* kTypeName = "DxfSection_Entity";

    std::int32_t InModelSpace = 0;  ///< the format's paper-space flag: 1 in paper space
    std::int32_t Color = 256;       ///< 256 by layer, 0 by block
    std::int32_t Lineweight = 0;
    std::int32_t Visibility = 0;  ///< 0 visible
    std::int32_t ImageLength = kUndefinedInteger;
    Text Layer;
    Text Linetype = "BYLAYER";
    double Elevation0 = 0;
    double LinetypeScale = 1.0;
    Ref<DxfSection_BinData> ImageData;
};

/// A non-graphical record of the OBJECTS section.
struct DxfSection_NgEntity : Typed<DxfSection_NgEntity, DxfSection_HandledObject> {
    static constexpr const char* kTypeName = "DxfSection_NgEntity";
};

/// A record whose type has no reader: kept whole, group for group.
struct DxfSection_UnrecognizedObject : Typed<DxfSection_UnrecognizedObject, DxfSection_Object> {
    static constexpr const char* kTypeName = "DxfSection_UnrecognizedObject";

    Text Type;  ///< the record's DXF name
    Ref<DxfSection_HSequenceOfDxfGroup> Data;
};

}  // namespace veltrane
