// A list of records gathered for somebody who asked, walked from its start.
#pragma once

#include "veltrane/base/ref.hpp"

#include <vector>

namespace veltrane {

/// Null records are not listed.
class EntityIterator {
public:
    void AddItem(Ref<Transient> record) {
        if (record) records_.push_back(std::move(record));
    }
    void Clear() {
        records_.clear();
        at_ = 0;
    }
    int NbEntities() const { return static_cast<int>(records_.size()); }

    void Start() { at_ = 0; }
    bool More() const { return at_ < records_.size(); }
    void Next() { ++at_; }
    /// Only while More().
    const Ref<Transient>& Value() const { return records_.at(at_); }

    auto begin() const { return records_.begin(); }
    auto end() const { return records_.end(); }

private:
    std::vector<Ref<Transient>> records_;
    std::size_t at_ = 0;
};

}  // namespace veltrane
