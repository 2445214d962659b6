// A shape as the source of a transfer.
#pragma once

#include "veltrane/base/ref.hpp"
#include "veltrane/kernel/topo/shape.hpp"

namespace veltrane {

/// Wraps a shape, so that results and messages can be bound to it. WriteProcess::Key gives the same key for
/// the same shape.
class ShapeKey : public Typed<ShapeKey, Transient> {
public:
    static constexpr const char* kTypeName = "ShapeKey";

    explicit ShapeKey(kernel::Shape shape) : shape_(std::move(shape)) {}
    const kernel::Shape& Value() const { return shape_; }

private:
    kernel::Shape shape_;
};

}  // namespace veltrane
