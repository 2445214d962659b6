// The file's own structure: its root, its sections and the header variables.
#pragma once

#include "veltrane/section/object.hpp"

namespace veltrane {

/// A group 9 and the groups of its value.
struct DxfSection_Variable : Typed<DxfSection_Variable, Transient> {
    static constexpr const char* kTypeName = "DxfSection_Variable";

    Text Name;  ///< with its '$'
    Ref<DxfSection_HSequenceOfDxfGroup> Value;
};

struct DxfSection_Section : Typed<DxfSection_Section, DxfSection_Object> {
    static constexpr const char* kTypeName = "DxfSection_Section";

    Ref<Sequence<Text>> Comment;
    Text Name;
    Ref<Sequence<Ref<DxfSection_Variable>>> Variables;
    Ref<DxfSection_HSequenceOfObject> Objects;

    Ref<DxfSection_HSequenceOfObject> GetSubObjects() const override { return Objects; }
};

/// The root of a file.
struct DxfSection_DxfFile : Typed<DxfSection_DxfFile, Transient> {
    static constexpr const char* kTypeName = "DxfSection_DxfFile";

    Ref<Sequence<Text>> Comment;
    Ref<DxfSection_HSequenceOfObject> Sections;  ///< the top-level records in file order
};

/// One class definition of the CLASSES section.
struct DxfSection_Class : Typed<DxfSection_Class, DxfSection_Object> {
    static constexpr const char* kTypeName = "DxfSection_Class";

    Text DXFName;
    Text CPPName;
    Text APPName;
    std::int32_t ProxyFlag = 0;
    std::int32_t WasAProxy = 0;
    std::int32_t IsAnEntity = 0;
};

struct DxfSection_ThumbNailImage : Typed<DxfSection_ThumbNailImage, DxfSection_Object> {
    static constexpr const char* kTypeName = "DxfSection_ThumbNailImage";

    std::int32_t BytesNumber = 0;
    Ref<DxfSection_BinData> ImageData;
};

/// One ACDSRECORD of the ACDSDATA section.
struct DxfSection_AcDsRecord : Typed<DxfSection_AcDsRecord, DxfSection_Object> {
    static constexpr const char* kTypeName = "DxfSection_AcDsRecord";

    Ref<Sequence<Text>> Names;
    Ref<Sequence<std::uint8_t>> Data;  ///< the bytes of the groups 310, decoded
    std::int32_t EntityHandle = 0;
    Ref<DxfSection_HSequenceOfDxfGroup> Groups;  ///< all its groups as read, in their order
};

}  // namespace veltrane
