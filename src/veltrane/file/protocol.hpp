// What the norm "DXF" tells the exchange framework about its models and records.
#pragma once

#include "veltrane/exchange/general_module.hpp"
#include "veltrane/exchange/protocol.hpp"

namespace veltrane {

class DxfFile_Protocol : public Typed<DxfFile_Protocol, ExchangeProtocol> {
public:
    static constexpr const char* kTypeName = "DxfFile_Protocol";

    int NbResources() const override { return 0; }
    Ref<ExchangeProtocol> Resource(int /*number*/) const override { return nullptr; }
    int TypeNumber(const Type& /*type*/) const override { return 1; }
    bool IsSuitableModel(const ExchangeModel* model) const override;
    Ref<ExchangeModel> NewModel() const override;
    /// Null: a record of an unknown type is a DxfSection_UnrecognizedObject from the moment it is read.
    Ref<Transient> UnknownEntity() const override { return nullptr; }
    bool IsUnknownEntity(const Transient* /*record*/) const override { return false; }
};

/// All records are one case: sharing follows the containment of the drawing.
class DxfFile_GeneralModule : public Typed<DxfFile_GeneralModule, ExchangeGeneralModule> {
public:
    static constexpr const char* kTypeName = "DxfFile_GeneralModule";

    void FillSharedCase(int number, const Transient* record, EntityIterator& shared) const override;
    void ListImpliedCase(int, const Transient*, EntityIterator&) const override {}
    void CheckCase(int, const Transient*, const ShareTool&, Check&) const override {}
    bool NewVoid(int, Ref<Transient>&) const override { return false; }
    void CopyCase(int, const Transient*, Transient*) const override {}
    int CategoryNumber(int, const Transient*, const ShareTool&) const override { return 1; }
    Text Name(int number, const Transient* record, const ShareTool& shares) const override;
};

}  // namespace veltrane
