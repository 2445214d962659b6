// A norm small enough to test the framework with: records are named and own other records.
#pragma once

#include "veltrane/exchange/general_library.hpp"
#include "veltrane/exchange/model.hpp"

#include <string>
#include <vector>

namespace veltrane {

struct TestRecord : Typed<TestRecord, Transient> {
    static constexpr const char* kTypeName = "TestRecord";
    explicit TestRecord(std::string record_name = {}, std::vector<Ref<TestRecord>> owned = {})
        : name(std::move(record_name)), children(std::move(owned)) {}

    std::string name;
    std::vector<Ref<TestRecord>> children;
};

template <class Self>
struct PlainModel : Typed<Self, ExchangeModel> {
    void ClearHeader() override {}
    void ClearLabels() override {}
    void GetFromAnother(const ExchangeModel&) override {}
    Ref<ExchangeModel> NewEmptyModel() const override { return make<Self>(); }
    void DumpHeader(std::ostream&, int) const override {}
    void PrintLabel(const Transient*, std::ostream&) const override {}
    Text StringLabel(const Transient*) const override { return {}; }
    int NextNumberForLabel(std::string_view, int, bool) const override { return 0; }
};
struct TestModel : PlainModel<TestModel> {
    static constexpr const char* kTypeName = "TestModel";
};
struct OtherModel : PlainModel<OtherModel> {
    static constexpr const char* kTypeName = "OtherModel";
};

struct TestProtocol : Typed<TestProtocol, ExchangeProtocol> {
    static constexpr const char* kTypeName = "TestProtocol";
    int NbResources() const override { return 0; }
    Ref<ExchangeProtocol> Resource(int) const override { return nullptr; }
    int TypeNumber(const Type&) const override { return 1; }
    bool IsSuitableModel(const ExchangeModel* model) const override { return as<const TestModel>(model); }
    Ref<ExchangeModel> NewModel() const override { return make<TestModel>(); }
    Ref<Transient> UnknownEntity() const override { return nullptr; }
    bool IsUnknownEntity(const Transient*) const override { return false; }
};

struct TestModule : Typed<TestModule, ExchangeGeneralModule> {
    static constexpr const char* kTypeName = "TestModule";
    void FillSharedCase(int, const Transient* record, EntityIterator& shared) const override {
        for (const auto& child : as<const TestRecord>(record)->children) shared.AddItem(child);
    }
    void ListImpliedCase(int, const Transient*, EntityIterator&) const override {}
    void CheckCase(int, const Transient*, const ShareTool&, Check&) const override {}
    bool NewVoid(int, Ref<Transient>&) const override { return false; }
    void CopyCase(int, const Transient*, Transient*) const override {}
    int CategoryNumber(int, const Transient*, const ShareTool&) const override { return 1; }
    Text Name(int, const Transient*, const ShareTool&) const override { return {}; }
};

/// Makes the norm known, once.
inline const Ref<ExchangeProtocol>& test_norm() {
    static const Ref<ExchangeProtocol> protocol = [] {
        Ref<ExchangeProtocol> made = make<TestProtocol>();
        GeneralLibrary::SetGlobal(make<TestModule>(), made);
        return made;
    }();
    return protocol;
}

}  // namespace veltrane
