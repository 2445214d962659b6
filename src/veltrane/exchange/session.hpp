// What a reader and a writer may share: the norm and the model at hand.
#pragma once

#include "veltrane/exchange/controller.hpp"
#include "veltrane/exchange/model.hpp"

#include <string_view>

namespace veltrane {

class ExchangeSession : public Typed<ExchangeSession, Transient> {
public:
    static constexpr const char* kTypeName = "ExchangeSession";

    /// Selects the norm of a recorded name. False, and no change, when there is none.
    bool SelectNorm(std::string_view name);
    /// Null before a norm is selected.
    const Ref<ExchangeController>& Controller() const { return controller_; }

    /// The current model; may be null.
    const Ref<ExchangeModel>& Model() const { return model_; }
    void SetModel(Ref<ExchangeModel> model) { model_ = std::move(model); }
    /// A new model of the norm, which becomes the current one; null, and no change, without a norm.
    Ref<ExchangeModel> NewModel();

private:
    Ref<ExchangeController> controller_;
    Ref<ExchangeModel> model_;
};

}  // namespace veltrane
