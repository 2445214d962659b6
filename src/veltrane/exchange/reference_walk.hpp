// Adds records to a model together with everything they share, at all depths.
#pragma once

#include "veltrane/exchange/general_library.hpp"
#include "veltrane/exchange/model.hpp"

#include <vector>

namespace veltrane {

/// One walk over a model: what a record shares is looked at once, however many roots reach it. Records
/// that are listed already keep their numbers, and what they share is added too. A record stands before
/// what it shares. Depth costs memory, never stack.
class ReferenceWalk {
public:
    /// The model must outlive the walk.
    explicit ReferenceWalk(ExchangeModel& model);
    void Add(const Ref<Transient>& root);

private:
    /// True at the first call for a record number.
    bool first_visit(int number);

    ExchangeModel& model_;
    GeneralLibrary library_;
    std::vector<bool> visited_;  // by record number
    std::vector<Ref<Transient>> pending_;
};

}  // namespace veltrane
