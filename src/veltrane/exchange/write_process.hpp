// The results and messages of writing shapes into a model.
#pragma once

#include "veltrane/exchange/binder.hpp"
#include "veltrane/exchange/model.hpp"
#include "veltrane/exchange/shape_key.hpp"

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace veltrane {

/// What a process keeps of one shape.
struct ShapeReport {
    Ref<ShapeKey> Key;
    Ref<TransferBinder> Binder;  ///< null when nothing is bound
    Check Messages;
};

/// Shapes are the same when definition, placement and orientation are. A process is used by one thread.
class WriteProcess : public Typed<WriteProcess, Transient> {
public:
    static constexpr const char* kTypeName = "WriteProcess";

    /// `capacity` is the number of shapes to make room for.
    explicit WriteProcess(int capacity = 0);

    /// May be null. Results of another model are dropped.
    const Ref<ExchangeModel>& Model() const { return model_; }
    void SetModel(Ref<ExchangeModel> model);
    /// Forgets all shapes.
    void Clear();

    /// The key of a shape, made at the first call.
    Ref<ShapeKey> Key(const kernel::Shape& shape);

    /// Binds a result to a key and replaces an earlier one.
    void Bind(const ShapeKey& key, Ref<TransferBinder> binder);
    /// Null when nothing is bound.
    Ref<TransferBinder> Find(const ShapeKey& key) const;
    Ref<TransferBinder> Find(const kernel::Shape& shape) const;

    void AddFail(const ShapeKey& key, Message message);
    void AddWarning(const ShapeKey& key, Message message);
    /// Everything that was asked for or reported, in order of first mention.
    const std::vector<ShapeReport>& Reports() const { return reports_; }

private:
    struct EqualShape {
        bool operator()(const kernel::Shape& a, const kernel::Shape& b) const {
            return kernel::is_equal(a, b);
        }
    };

    ShapeReport& change_report(const kernel::Shape& shape);

    Ref<ExchangeModel> model_;
    std::vector<ShapeReport> reports_;
    std::unordered_map<kernel::Shape, std::size_t, kernel::SameShapeHash, EqualShape> index_;
};

}  // namespace veltrane
