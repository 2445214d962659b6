#include "veltrane/exchange/write_process.hpp"

namespace veltrane {

WriteProcess::WriteProcess(int capacity) {
    if (capacity <= 0) return;
    reports_.reserve(static_cast<std::size_t>(capacity));
    index_.reserve(static_cast<std::size_t>(capacity));
}

void WriteProcess::SetModel(Ref<ExchangeModel> model) {
    if (model_ == model) return;
    Clear();
    model_ = std::move(model);
}

void WriteProcess::Clear() {
    reports_.clear();
    index_.clear();
}

Ref<ShapeKey> WriteProcess::Key(const kernel::Shape& shape) {
    return change_report(shape).Key;
}

void WriteProcess::Bind(const ShapeKey& key, Ref<TransferBinder> binder) {
    change_report(key.Value()).Binder = std::move(binder);
}

Ref<TransferBinder> WriteProcess::Find(const ShapeKey& key) const {
    return Find(key.Value());
}

Ref<TransferBinder> WriteProcess::Find(const kernel::Shape& shape) const {
    const auto found = index_.find(shape);
    return found == index_.end() ? nullptr : reports_[found->second].Binder;
}

void WriteProcess::AddFail(const ShapeKey& key, Message message) {
    change_report(key.Value()).Messages.AddFail(std::move(message));
}

void WriteProcess::AddWarning(const ShapeKey& key, Message message) {
    change_report(key.Value()).Messages.AddWarning(std::move(message));
}

ShapeReport& WriteProcess::change_report(const kernel::Shape& shape) {
    const auto [entry, is_new] = index_.try_emplace(shape, reports_.size());
    if (is_new) reports_.push_back({make<ShapeKey>(shape), nullptr, {}});
    return reports_[entry->second];
}

}  // namespace veltrane
