// The drawing: the tree of a file, the list of its records, and the look-ups on both.
#pragma once

#include "veltrane/exchange/model.hpp"
#include "veltrane/section/structure.hpp"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace veltrane {

struct DxfSection_Block;
struct DxfSection_Layer;
struct DxfSection_Style;
struct DxfSection_Table;

/// All comparisons of names are exact and case-sensitive.
class DxfSection_Model : public Typed<DxfSection_Model, ExchangeModel> {
public:
    static constexpr const char* kTypeName = "DxfSection_Model";

    DxfSection_Model();
    ~DxfSection_Model() override;

    const Ref<DxfSection_DxfFile>& DxfFile() const { return root_; }
    void SetDxfFile(const Ref<DxfSection_DxfFile>& root) { root_ = root; }

    /// Millimetres per drawing unit, as last worked out from $INSUNITS.
    double UnitScale() const { return unit_scale_; }
    void SetUnitScale(double scale) { unit_scale_ = scale; }

    /// Gives every handled record a unique positive handle, fills the handle map and sets $HANDSEED.
    /// Of records that claim one handle the first keeps it.
    void AssignHandles();
    /// The largest handle that AssignHandles found or gave; 0 before.
    std::int32_t LastHandle() const { return last_handle_; }
    /// The record that AssignHandles bound to the handle, or null.
    Ref<DxfSection_HandledObject> FindByHandle(std::int32_t handle) const;

    /// `name` is one of the eight canonical section names; others give null. A section that is created
    /// stands at its canonical place.
    Ref<DxfSection_Section> FindSection(std::string_view name, bool create);
    /// `name` includes the leading '$'.
    Ref<DxfSection_Variable> FindVariable(std::string_view name, bool create);
    /// Value text of the variable's first group; null when there is none.
    Text GetVariableString(std::string_view name) const;
    /// Replaces the variable's first group and leaves its others.
    Ref<DxfSection_Variable> SetVariable(std::string_view name, const DxfSection_DxfGroup& group);
    Ref<DxfSection_Variable> SetVariable(std::string_view name, int code, std::string_view text);
    Ref<DxfSection_Variable> SetVariable(std::string_view name, int code, int value);
    Ref<DxfSection_Variable> SetVariable(std::string_view name, int code, double value);

    Ref<DxfSection_Table> FindTable(std::string_view name, bool create);
    /// Look-ups in the record list, which records created after the last read or update have not joined.
    /// They walk the list: inside a loop use the maps.
    Ref<DxfSection_Block> FindBlock(std::string_view name) const;
    Ref<DxfSection_Layer> FindLayer(std::string_view name) const;
    /// The layer of that name; layer "0" always exists. Filled at the first call after Update.
    Ref<DxfSection_Layer> FindLayerUsingMap(std::string_view name);
    Ref<DxfSection_Style> FindStyleUsingMap(std::string_view name);

    /// Makes the record list the top-level records alone.
    void Update();
    /// Adds every record of the tree, at all depths.
    void UpdateEntities();

    void Clear() override;
    void ClearHeader() override {}
    void ClearLabels() override {}
    void GetFromAnother(const ExchangeModel& other) override;
    Ref<ExchangeModel> NewEmptyModel() const override { return make<DxfSection_Model>(); }
    void DumpHeader(std::ostream& out, int level) const override;
    void PrintLabel(const Transient* record, std::ostream& out) const override;
    /// "#2F" for a handled record, "HEADER" for a section, "(#2, LAYER)" for a table with a handle, ...
    Text StringLabel(const Transient* record) const override;
    /// The number of the first record after `last` that carries the label; 0 when none does.
    int NextNumberForLabel(std::string_view label, int last, bool exact) const override;

private:
    template <class Entry>
    struct NameMap {
        std::unordered_map<Text, Ref<Entry>> entries;
        bool filled = false;
    };
    template <class Record>
    Ref<Record> first_named(std::string_view name, Text Record::*field) const;
    template <class Entry>
    void fill(NameMap<Entry>& map) const;
    void drop_duplicate_handles(std::vector<int>& without);

    Ref<DxfSection_DxfFile> root_ = make<DxfSection_DxfFile>();
    std::vector<std::pair<std::int32_t, Ref<DxfSection_HandledObject>>> handles_;  // ascending
    std::int32_t last_handle_ = 0;
    NameMap<DxfSection_Layer> layers_;
    NameMap<DxfSection_Style> styles_;
    double unit_scale_ = 1.0;
};

}  // namespace veltrane
