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
    other_results_.clear();
    reports_.clear();
    report_index_.clear();
}

void ReadProcess::SetMessenger(Ref<MessageChannel> messenger) {
    messenger_ = messenger ? std::move(messenger) : default_message_channel();
}

void ReadProcess::Bind(const Ref<Transient>& record, Ref<TransferBinder> binder) {
    if (!record) return;
    const auto number = static_cast<std::size_t>(number_of(record.get()));
    if (number == 0) {
        other_results_[record.get()] = {record, std::move(binder)};
        return;
    }
    if (number > results_.size()) results_.resize(number);
    results_[number - 1] = std::move(binder);
}

Ref<TransferBinder> ReadProcess::Find(const Transient* record) const {
    const auto number = static_cast<std::size_t>(number_of(record));
    if (number > 0 && number <= results_.size() && results_[number - 1]) return results_[number - 1];
    if (other_results_.empty()) return nullptr;
    const auto found = other_results_.find(record);
    return found == other_results_.end() ? nullptr : found->second.binder;
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
