// Binders that hold shapes.
#pragma once

#include "veltrane/exchange/binder.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <vector>

namespace veltrane {

/// A shape, which may be null: the source was translated and gave nothing.
class ShapeBinder : public Typed<ShapeBinder, TransferBinder> {
public:
    static constexpr const char* kTypeName = "ShapeBinder";

    ShapeBinder() = default;
    explicit ShapeBinder(kernel::Shape shape) : shape_(std::move(shape)) {}

    const kernel::Shape& Result() const { return shape_; }

private:
    kernel::Shape shape_;
};

/// Several shapes, in the order in which they were made.
class ShapeListBinder : public Typed<ShapeListBinder, TransferBinder> {
public:
    static constexpr const char* kTypeName = "ShapeListBinder";

    void Add(kernel::Shape shape) { shapes_.push_back(std::move(shape)); }
    const std::vector<kernel::Shape>& Shapes() const { return shapes_; }

private:
    std::vector<kernel::Shape> shapes_;
};

/// The shape that a binder stands for: null without a binder, for one that holds no shape and for an empty
/// list; a new compound for a list of several. `found` tells whether there was something to give, be it a
/// null shape.
kernel::Shape shape_result(const TransferBinder* binder, bool* found = nullptr);

}  // namespace veltrane
