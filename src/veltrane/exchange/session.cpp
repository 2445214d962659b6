#include "veltrane/exchange/session.hpp"

namespace veltrane {

bool ExchangeSession::SelectNorm(std::string_view name) {
    Ref<ExchangeController> controller = ExchangeController::Recorded(name);
    if (!controller) return false;
    controller_ = std::move(controller);
    return true;
}

Ref<ExchangeModel> ExchangeSession::NewModel() {
    if (!controller_) return nullptr;
    model_ = controller_->NewModel();
    return model_;
}

}  // namespace veltrane
