// What a transfer made of a source object.
#pragma once

#include "veltrane/base/ref.hpp"

namespace veltrane {

/// Holds one result; further results of the same source follow in a chain.
class TransferBinder : public Typed<TransferBinder, Transient> {
public:
    static constexpr const char* kTypeName = "TransferBinder";

    TransferBinder() = default;
    TransferBinder(const TransferBinder&) = delete;
    TransferBinder& operator=(const TransferBinder&) = delete;
    ~TransferBinder() override;

    /// Null at the end of the chain.
    const Ref<TransferBinder>& NextResult() const { return next_; }
    /// Puts a result at the end of the chain. `next` must not be in it.
    void AddResult(Ref<TransferBinder> next);
    /// Takes over the further results of a binder that this one replaces.
    void Merge(const TransferBinder& replaced);

private:
    Ref<TransferBinder> next_;
};

/// Holds an object of any kind.
class SimpleBinder : public Typed<SimpleBinder, TransferBinder> {
public:
    static constexpr const char* kTypeName = "SimpleBinder";

    SimpleBinder() = default;
    explicit SimpleBinder(Ref<Transient> result) : result_(std::move(result)) {}

    const Ref<Transient>& Result() const { return result_; }
    void SetResult(Ref<Transient> result) { result_ = std::move(result); }

private:
    Ref<Transient> result_;
};

}  // namespace veltrane
