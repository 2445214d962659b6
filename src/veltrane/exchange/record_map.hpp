// Something kept for each of many records.
#pragma once

#include "veltrane/exchange/model.hpp"

#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

namespace veltrane {

/// Values of records that a model lists are kept by record number, so that a million of them are as cheap as
/// a list; those of other objects are found through a map. A record that joins the model after a value was
/// set for it keeps that value. All calls must name the same model, which may be null; clear the map when the
/// model's records change their numbers.
template <class Value>
class RecordMap {
public:
    void reserve(std::size_t count) { listed_.reserve(count); }
    void clear() {
        listed_.clear();
        others_.clear();
    }

    void set(const ExchangeModel* model, const Ref<Transient>& record, Value value) {
        const std::size_t number = number_in(model, record.get());
        if (number == 0) {
            others_.insert_or_assign(record.get(), std::pair(record, std::move(value)));
            return;
        }
        if (number > listed_.size()) listed_.resize(number);
        listed_[number - 1] = std::move(value);
    }
    void erase(const ExchangeModel* model, const Transient* record) {
        const std::size_t number = number_in(model, record);
        if (number > 0 && number <= listed_.size()) listed_[number - 1] = Value();
        if (!others_.empty()) others_.erase(record);
    }
    /// A default-made value when none was set.
    Value get(const ExchangeModel* model, const Transient* record) const {
        const std::size_t number = number_in(model, record);
        if (number > 0 && number <= listed_.size() && listed_[number - 1] != Value()) {
            return listed_[number - 1];
        }
        if (others_.empty()) return {};
        const auto found = others_.find(record);
        return found == others_.end() ? Value() : found->second.second;
    }

private:
    static std::size_t number_in(const ExchangeModel* model, const Transient* record) {
        return model ? static_cast<std::size_t>(model->Number(record)) : 0;
    }

    std::vector<Value> listed_;                                                      // by record number - 1
    std::unordered_map<const Transient*, std::pair<Ref<Transient>, Value>> others_;  // the Ref keeps the key
};

}  // namespace veltrane
