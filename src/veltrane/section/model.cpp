#include "veltrane/section/model.hpp"

#include "veltrane/exchange/reference_walk.hpp"
#include "veltrane/section/block.hpp"
#include "veltrane/section/handle_text.hpp"
#include "veltrane/section/tables.hpp"

#include <algorithm>
#include <array>
#include <charconv>

namespace veltrane {

namespace {

constexpr std::array<std::string_view, 8> kSectionOrder = {
    "HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS", "THUMBNAILIMAGE", "ACDSDATA"};
constexpr std::int32_t kLowestFreeHandle = 101;

/// Place of a name in the canonical order; kSectionOrder.size() for any other name.
std::size_t section_rank(std::string_view name) {
    return static_cast<std::size_t>(std::find(kSectionOrder.begin(), kSectionOrder.end(), name) -
                                    kSectionOrder.begin());
}

template <class Number>
Text number_text(Number value) {
    char digits[32];
    const char* end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return Text(std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

constexpr int kAhead = 16;  // records that a walk over all of them asks the memory for in advance

inline void prefetch([[maybe_unused]] const void* address) {
#if defined(__GNUC__)
    __builtin_prefetch(address);
#endif
}

/// The handle of a record that is kept group for group; 0 when it has none.
std::int32_t handle_in_groups(const Transient& record) {
    const auto* unknown = as<const DxfSection_UnrecognizedObject>(&record);
    if (!unknown || !unknown->Data) return 0;
    for (const DxfSection_DxfGroup& group : *unknown->Data) {
        if (group.Code == 5 || group.Code == 105) return DxfSection::StringToHex(group.Value.view());
        if (group.Code == 100) return 0;  // further on, the codes have other meanings
    }
    return 0;
}

/// A list that may be null, made when `create` is set; null only when it stays missing.
template <class T>
Sequence<T>* existing_or_new(Ref<Sequence<T>>& list, bool create) {
    if (!list && create) list = make<Sequence<T>>();
    return list.get();
}

}  // namespace

DxfSection_Model::DxfSection_Model() = default;
DxfSection_Model::~DxfSection_Model() = default;

// Handles

void DxfSection_Model::AssignHandles() {
    const int count = NbEntities();
    if (count == 0) return;
    handles_.clear();
    handles_.reserve(static_cast<std::size_t>(count));
    std::int32_t largest = 0;
    std::vector<int> without;  // numbers of the records that are to get a handle
    for (int number = 1; number <= count; ++number) {
        prefetch(number + kAhead <= count ? Value(number + kAhead).get() : nullptr);
        auto* handled = as<DxfSection_HandledObject>(Value(number).get());
        if (!handled) {
            largest = std::max(largest, handle_in_groups(*Value(number)));
            continue;
        }
        if (handled->Handle < 1) {
            without.push_back(number);
            continue;
        }
        largest = std::max(largest, handled->Handle);
        handles_.emplace_back(handled->Handle, handled);
    }
    drop_duplicate_handles(without);
    std::int32_t top = std::max(largest, kLowestFreeHandle - 1);
    if (!std::is_sorted(without.begin(), without.end())) std::sort(without.begin(), without.end());
    for (int number : without) {
        if (top == INT32_MAX) break;
        auto* handled = static_cast<DxfSection_HandledObject*>(Value(number).get());
        handled->Handle = ++top;
        handles_.emplace_back(top, handled);
    }
    last_handle_ = top >= kLowestFreeHandle ? top : largest;
    if (top >= kLowestFreeHandle) SetVariable("$HANDSEED", {5, DxfSection::HexToString(top)});
}

/// Sorts the map and takes the handle away from every record but the first that claims it; adds the numbers
/// of those that lost it to `without`.
void DxfSection_Model::drop_duplicate_handles(std::vector<int>& without) {
    const auto by_handle = [](const auto& a, const auto& b) { return a.first < b.first; };
    // Most drawings are written in the order of their handles, but for a few records.
    const auto others = std::is_sorted_until(handles_.begin(), handles_.end(), by_handle);
    std::stable_sort(others, handles_.end(), by_handle);
    std::inplace_merge(handles_.begin(), others, handles_.end(), by_handle);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < handles_.size(); ++i) {
        if (kept > 0 && handles_[kept - 1].first == handles_[i].first) {
            handles_[i].second->Handle = kUndefinedInteger;
            without.push_back(Number(handles_[i].second.get()));
        } else {
            if (kept != i) handles_[kept] = std::move(handles_[i]);
            ++kept;
        }
    }
    handles_.resize(kept);
}

Ref<DxfSection_HandledObject> DxfSection_Model::FindByHandle(std::int32_t handle) const {
    const auto found =
        std::lower_bound(handles_.begin(), handles_.end(), handle,
                         [](const auto& binding, std::int32_t value) { return binding.first < value; });
    return found != handles_.end() && found->first == handle ? found->second : nullptr;
}

// Sections and header variables

Ref<DxfSection_Section> DxfSection_Model::FindSection(std::string_view name, bool create) {
    const std::size_t rank = section_rank(name);
    if (rank == kSectionOrder.size()) return nullptr;
    auto* sections = existing_or_new(root_->Sections, create);
    if (!sections) return nullptr;

    int place = 1;
    for (; place <= sections->Length(); ++place) {
        auto* section = as<DxfSection_Section>(sections->Value(place).get());
        if (!section || section->Name.is_null()) continue;
        if (section->Name == name) return section;
        const std::size_t other = section_rank(section->Name);
        if (other > rank && other < kSectionOrder.size()) break;
    }
    if (!create) return nullptr;
    auto section = make<DxfSection_Section>();
    section->Name = name;
    sections->InsertBefore(place, section);
    return section;
}

Ref<DxfSection_Variable> DxfSection_Model::FindVariable(std::string_view name, bool create) {
    const auto header = FindSection("HEADER", create);
    auto* variables = header ? existing_or_new(header->Variables, create) : nullptr;
    if (!variables) return nullptr;

    const auto found = std::find_if(variables->begin(), variables->end(),
                                    [&](const auto& variable) { return variable && variable->Name == name; });
    Ref<DxfSection_Variable> variable = found == variables->end() ? nullptr : *found;
    if (!variable && create) {
        variable = make<DxfSection_Variable>();
        variable->Name = name;
        variables->Append(variable);
    }
    if (variable && create) existing_or_new(variable->Value, true);
    return variable;
}

Text DxfSection_Model::GetVariableString(std::string_view name) const {
    // With `create` unset the look-up changes nothing.
    const auto variable = const_cast<DxfSection_Model*>(this)->FindVariable(name, false);
    return variable && length(variable->Value) > 0 ? variable->Value->Value(1).Value : Text();
}

Ref<DxfSection_Variable> DxfSection_Model::SetVariable(std::string_view name,
                                                       const DxfSection_DxfGroup& group) {
    const auto variable = FindVariable(name, true);
    if (variable->Value->IsEmpty()) {
        variable->Value->Append(group);
    } else {
        variable->Value->ChangeValue(1) = group;
    }
    return variable;
}

Ref<DxfSection_Variable> DxfSection_Model::SetVariable(std::string_view name, int code,
                                                       std::string_view text) {
    return SetVariable(name, {code, Text(text)});
}

Ref<DxfSection_Variable> DxfSection_Model::SetVariable(std::string_view name, int code, int value) {
    return SetVariable(name, {code, number_text(value)});
}

Ref<DxfSection_Variable> DxfSection_Model::SetVariable(std::string_view name, int code, double value) {
    return SetVariable(name, {code, number_text(value)});
}

// Look-ups by name

Ref<DxfSection_Table> DxfSection_Model::FindTable(std::string_view name, bool create) {
    const auto section = FindSection("TABLES", create);
    auto* tables = section ? existing_or_new(section->Objects, create) : nullptr;
    if (!tables) return nullptr;

    int line_types = 0;
    for (int place = 1; place <= tables->Length(); ++place) {
        auto* table = as<DxfSection_Table>(tables->Value(place).get());
        if (!table) continue;
        if (table->Name == name) return table;
        if (table->Name == "LTYPE") line_types = place;
    }
    if (!create) return nullptr;
    auto table = make<DxfSection_Table>();
    table->Name = name;
    // Layers refer to line types, so readers expect these first.
    const bool after_line_types = name == "LAYER" && line_types > 0;
    tables->InsertBefore(after_line_types ? line_types + 1 : tables->Length() + 1, table);
    return table;
}

template <class Record>
Ref<Record> DxfSection_Model::first_named(std::string_view name, Text Record::*field) const {
    for (const Ref<Transient>& record : records()) {
        auto* named = as<Record>(record.get());
        if (named && named->*field == name) return named;
    }
    return nullptr;
}

Ref<DxfSection_Block> DxfSection_Model::FindBlock(std::string_view name) const {
    return first_named(name, &DxfSection_Block::BlockName1);
}

Ref<DxfSection_Layer> DxfSection_Model::FindLayer(std::string_view name) const {
    return first_named(name, &DxfSection_Layer::Name);
}

template <class Entry>
void DxfSection_Model::fill(NameMap<Entry>& map) const {
    if (map.filled) return;
    map.entries.clear();
    for (const Ref<Transient>& record : records()) {
        auto* entry = as<Entry>(record.get());
        if (entry && !entry->Name.is_null()) map.entries.try_emplace(entry->Name, entry);
    }
    map.filled = true;
}

namespace {

template <class Entry>
Ref<Entry> bound_to(const std::unordered_map<Text, Ref<Entry>>& entries, std::string_view name) {
    const auto found = entries.find(Text(name));
    return found == entries.end() ? nullptr : found->second;
}

}  // namespace

Ref<DxfSection_Layer> DxfSection_Model::FindLayerUsingMap(std::string_view name) {
    if (!layers_.filled) {
        fill(layers_);
        layers_.entries.try_emplace(Text("0"), make<DxfSection_Layer>());
    }
    return bound_to(layers_.entries, name);
}

Ref<DxfSection_Style> DxfSection_Model::FindStyleUsingMap(std::string_view name) {
    fill(styles_);
    return bound_to(styles_.entries, name);
}

// The record list against the tree

void DxfSection_Model::Update() {
    ClearEntities();
    layers_.filled = false;
    if (!root_->Sections) return;
    for (const auto& record : *root_->Sections) AddEntity(record);
}

void DxfSection_Model::UpdateEntities() {
    layers_.filled = false;
    if (!root_->Sections) return;
    ReferenceWalk walk(*this);
    for (const auto& record : *root_->Sections) walk.Add(record);
}

void DxfSection_Model::Clear() {
    ExchangeModel::Clear();
    last_handle_ = 0;
    handles_.clear();
    layers_ = {};
    styles_ = {};
}

void DxfSection_Model::GetFromAnother(const ExchangeModel& other) {
    if (const auto* drawing = as<const DxfSection_Model>(&other)) root_ = drawing->root_;
}

}  // namespace veltrane
