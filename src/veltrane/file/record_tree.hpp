// The records of a drawing laid out flat, so that two drawings of any depth are compared without recursion.
#pragma once

#include "veltrane/section/model.hpp"

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace veltrane {

struct TreeRecord {
    const DxfSection_Object* record = nullptr;
    int container = -1;
    int first = 0;          ///< of the records inside, which stand one after the other
    int count = 0;          ///< of the records directly inside
    std::string_view type;  ///< DXF name
    std::int32_t handle = 0;
    int partner = -1;           ///< place of the same record in the other tree
    bool is_identical = false;  ///< the partner is equal to the last field
};

/// Every record stands after the one that contains it. Refers to the records of the model. Record 0 is the
/// file itself.
class RecordTree {
public:
    explicit RecordTree(const DxfSection_Model& model);

    int size() const { return static_cast<int>(records_.size()); }
    TreeRecord& operator[](int place) { return records_[static_cast<std::size_t>(place)]; }
    const TreeRecord& operator[](int place) const { return records_[static_cast<std::size_t>(place)]; }

    /// The first record with the handle; -1 when there is none.
    int find(std::int32_t handle) const;
    bool is_paired(int place) const { return (*this)[place].partner >= 0; }
    /// The outermost record around a record.
    int section_of(int place) const;

private:
    void add_contents(int place);
    void add(const DxfSection_Object* record, int container);

    std::vector<TreeRecord> records_;
    std::unordered_map<std::int32_t, int> places_;
};

}  // namespace veltrane
