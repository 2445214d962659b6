// Answers which records a record shares, within one model.
#pragma once

#include "veltrane/exchange/entity_iterator.hpp"
#include "veltrane/exchange/model.hpp"

namespace veltrane {

class ShareTool {
public:
    ShareTool() = default;
    explicit ShareTool(Ref<ExchangeModel> model) : model_(std::move(model)) {}

    /// May be null.
    const Ref<ExchangeModel>& Model() const { return model_; }
    /// The records that `record` shares directly; none when the model's norm is not known.
    EntityIterator Shareds(const Transient* record) const;

private:
    Ref<ExchangeModel> model_;
};

}  // namespace veltrane
