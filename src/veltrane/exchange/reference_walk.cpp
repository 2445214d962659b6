#include "veltrane/exchange/reference_walk.hpp"

#include <algorithm>

namespace veltrane {

ReferenceWalk::ReferenceWalk(ExchangeModel& model)
    : model_(model), library_(GeneralLibrary::ForModel(&model)) {}

void ReferenceWalk::Add(const Ref<Transient>& root) {
    pending_.push_back(root);
    while (!pending_.empty()) {
        const Ref<Transient> record = std::move(pending_.back());
        pending_.pop_back();
        if (!record || !first_visit(model_.AddEntity(record))) continue;
        EntityIterator shared;
        library_.FillShared(record.get(), shared);
        pending_.insert(pending_.end(), shared.begin(), shared.end());
        std::reverse(pending_.end() - shared.NbEntities(), pending_.end());  // the first is taken first
    }
}

bool ReferenceWalk::first_visit(int number) {
    const auto index = static_cast<std::size_t>(number);
    if (index >= visited_.size()) visited_.resize(std::max(index + 1, visited_.size() * 2));
    if (visited_[index]) return false;
    visited_[index] = true;
    return true;
}

}  // namespace veltrane
