#include "veltrane/exchange/binder.hpp"

namespace veltrane {

/// A long chain is taken apart link by link; letting it go as a whole would recurse.
TransferBinder::~TransferBinder() {
    Ref<TransferBinder> rest = std::move(next_);
    while (rest && rest->use_count() == 1) rest = Ref<TransferBinder>(std::move(rest->next_));
}

void TransferBinder::AddResult(Ref<TransferBinder> next) {
    TransferBinder* last = this;
    while (last->next_) last = last->next_.get();
    last->next_ = std::move(next);
}

void TransferBinder::Merge(const TransferBinder& replaced) {
    if (replaced.next_) AddResult(replaced.next_);
}

}  // namespace veltrane
