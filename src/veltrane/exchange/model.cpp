#include "veltrane/exchange/model.hpp"

#include <algorithm>

namespace veltrane {

namespace {

constexpr std::uint32_t kOtherSlot = Transient::kLargestSlot;  // says: perhaps listed in another model

}  // namespace

int ExchangeModel::Number(const Transient* record) const {
    if (!record) return 0;
    const std::size_t slot = record->slot();
    if (slot == 0) return 0;  // in no model at all
    if (slot <= records_.size() && records_[slot - 1].get() == record) return static_cast<int>(slot);
    // The slot is another model's: this one keeps a table of its own from now on.
    if (!numbers_filled_) {
        for (std::size_t i = 0; i < records_.size(); ++i)
            numbers_[records_[i].get()] = static_cast<int>(i) + 1;
        numbers_filled_ = true;
    }
    const auto found = numbers_.find(record);
    return found == numbers_.end() ? 0 : found->second;
}

int ExchangeModel::AddEntity(const Ref<Transient>& record, int line) {
    if (!record) return 0;
    if (const int number = Number(record.get())) return number;
    if (record->slot() != 0) shares_records_ = true;
    records_.push_back(record);
    const int number = NbEntities();
    record->set_slot(static_cast<std::uint32_t>(number));
    if (numbers_filled_) numbers_[record.get()] = number;
    if (line > 0) {
        lines_.resize(records_.size());
        lines_.back() = line;
    }
    return number;
}

int ExchangeModel::Line(int number) const {
    const auto index = static_cast<std::size_t>(number) - 1;
    return index < lines_.size() ? lines_[index] : 0;
}

void ExchangeModel::Clear() {
    ClearEntities();
    global_check_ = make<Check>();
}

void ExchangeModel::ClearEntities() {
    const std::uint32_t free_slot = shares_records_ ? kOtherSlot : 0;
    for (std::size_t i = 0; i < records_.size(); ++i) {
        if (records_[i]->slot() == i + 1) records_[i]->set_slot(free_slot);
    }
    shares_records_ = false;
    records_.clear();
    lines_.clear();
    reports_.clear();
    numbers_.clear();
    numbers_filled_ = false;
}

Check* ExchangeModel::CheckOf(int number) const {
    const auto index = static_cast<std::size_t>(number) - 1;
    return index < reports_.size() ? reports_[index].get() : nullptr;
}

Check& ExchangeModel::ChangeCheck(int number) {
    const auto index = static_cast<std::size_t>(number) - 1;
    if (index >= reports_.size()) reports_.resize(index + 1);
    if (!reports_[index]) reports_[index] = make<Check>();
    return *reports_[index];
}

bool ExchangeModel::HasFailed() const {
    return global_check_->HasFailed() ||
           std::any_of(reports_.begin(), reports_.end(),
                       [](const Ref<Check>& check) { return check && check->HasFailed(); });
}

}  // namespace veltrane
