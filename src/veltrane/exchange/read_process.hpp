// The results and messages of translating the records of a model.
#pragma once

#include "veltrane/exchange/binder.hpp"
#include "veltrane/exchange/message_channel.hpp"
#include "veltrane/exchange/record_map.hpp"

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace veltrane {

/// The fails and warnings of one record.
struct RecordReport {
    Ref<Transient> Record;
    Check Messages;
};

/// A process serves one model and is used by one thread. Results may be bound to objects outside the model.
class ReadProcess : public Typed<ReadProcess, Transient> {
public:
    static constexpr const char* kTypeName = "ReadProcess";

    /// `capacity` is the number of results to make room for.
    explicit ReadProcess(int capacity = 0);

    /// May be null.
    const Ref<ExchangeModel>& Model() const { return model_; }
    /// Results and messages that are kept belong to the earlier model; they are dropped.
    void SetModel(Ref<ExchangeModel> model);
    /// Forgets all results and messages.
    void Clear();

    /// Binds a result to a record and replaces an earlier one.
    void Bind(const Ref<Transient>& record, Ref<TransferBinder> binder);
    /// Null when nothing is bound.
    Ref<TransferBinder> Find(const Transient* record) const;

    void AddFail(const Ref<Transient>& record, Message message);
    void AddWarning(const Ref<Transient>& record, Message message);
    /// Null when nothing was reported on the record.
    const Check* CheckOf(const Transient* record) const;
    /// Everything reported, in the order of the first message of each record.
    const std::vector<RecordReport>& Reports() const { return reports_; }

    /// For texts that belong to no record; never null.
    const Ref<MessageChannel>& Messenger() const { return messenger_; }
    void SetMessenger(Ref<MessageChannel> messenger);

private:
    Check& change_check(const Ref<Transient>& record);

    Ref<ExchangeModel> model_;
    RecordMap<Ref<TransferBinder>> results_;
    std::vector<RecordReport> reports_;
    std::unordered_map<const Transient*, std::size_t> report_index_;
    Ref<MessageChannel> messenger_ = default_message_channel();
};

}  // namespace veltrane
