// DICTIONARY, ACDBDICTIONARYWDFLT, DICTIONARYVAR, ACDBPLACEHOLDER and XRECORD: what is looked up by name.
#pragma once

#include "veltrane/section/object.hpp"

namespace veltrane {

/// A name and the record that it stands for, whose handle is kept under the code that it came with.
struct DxfEnt_DictionaryEntry : Typed<DxfEnt_DictionaryEntry, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_DictionaryEntry";

    Text EntryName;
    std::int32_t EntryObjectID = kUndefinedInteger;     ///< soft owner
    std::int32_t EntryObjectID360 = kUndefinedInteger;  ///< hard owner
    std::int32_t EntryObjectID370 = kUndefinedInteger;
};

struct DxfEnt_Dictionary : Typed<DxfEnt_Dictionary, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_Dictionary";

    std::int32_t HardOwnerFlag = 0;
    std::int32_t CloningFlag = 0;
    Ref<Sequence<Ref<DxfEnt_DictionaryEntry>>> DictionaryEntries;
};

/// A dictionary with a default: room for one entry.
struct DxfEnt_AcDbDictionaryWDflt : Typed<DxfEnt_AcDbDictionaryWDflt, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_AcDbDictionaryWDflt";

    std::int32_t CloningFlag = 0;
    Text EntryName;
    std::int32_t EntryObjectID = 0;
    std::int32_t DefaultObjectID = kUndefinedInteger;
};

struct DxfEnt_DictionaryVar : Typed<DxfEnt_DictionaryVar, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_DictionaryVar";

    std::int32_t SchemaNumber = 0;
    Text Value;
};

struct DxfEnt_AcDbPlaceHolder : Typed<DxfEnt_AcDbPlaceHolder, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_AcDbPlaceHolder";

    std::int32_t XZData = kUndefinedInteger;
};

struct DxfEnt_XRecordData : Typed<DxfEnt_XRecordData, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_XRecordData";

    std::int32_t CloningFlag = 0;
    Ref<DxfSection_HSequenceOfDxfGroup> Data;  ///< an application's own groups, as they were read
};

struct DxfEnt_XRecord : Typed<DxfEnt_XRecord, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_XRecord";

    Ref<DxfEnt_XRecordData> Data;
};

}  // namespace veltrane
