#include "veltrane/exchange/read_process.hpp"

namespace veltrane {

ReadProcess::ReadProcess(int capacity) {
    if (capacity > 0) results_.reserve(static_cast<std::size_t>(capacity));
}

void ReadProcess::SetModel(Ref<ExchangeModel> model) {
    if (model_ == model) return;
    Clear();
    model_ = std::move(model);
}

void ReadProcess::Clear() {
    results_.clear();
    reports_.clear();
    report_index_.clear();
}

void ReadProcess::SetMessenger(Ref<MessageChannel> messenger) {
    messenger_ = messenger ? std::move(messenger) : default_message_channel();
}

void ReadProcess::Bind(const Ref<Transient>& record, Ref<TransferBinder> binder) {
    if (record) results_.set(model_.get(), record, std::move(binder));
}

Ref<TransferBinder> ReadProcess::Find(const Transient* record) const {
    return results_.get(model_.get(), record);
}

void ReadProcess::AddFail(const Ref<Transient>& record, Message message) {
    change_check(record).AddFail(std::move(message));
}

void ReadProcess::AddWarning(const Ref<Transient>& record, Message message) {
    change_check(record).AddWarning(std::move(message));
}

const Check* ReadProcess::CheckOf(const Transient* record) const {
    const auto found = report_index_.find(record);
    return found == report_index_.end() ? nullptr : &reports_[found->second].Messages;
}

Check& ReadProcess::change_check(const Ref<Transient>& record) {
    const auto [entry, is_new] = report_index_.try_emplace(record.get(), reports_.size());
    if (is_new) reports_.push_back({record, {}});
    return reports_[entry->second].Messages;
}

}  // namespace veltrane
