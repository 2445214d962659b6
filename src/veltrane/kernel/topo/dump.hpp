// A shape as indented text, for people.
#pragma once

#include "veltrane/kernel/topo/shape.hpp"

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>

namespace veltrane::kernel {

/// Writes the topology below a shape, a line per use: number of the definition, kind, orientation, placement
/// if any, and the geometry in short. A definition met again is referred to by its number and not repeated.
/// Below a depth of 32 the indentation stays and the depth is written as a number instead.
void dump(std::ostream& out, const Shape& shape);
std::string dump(const Shape& shape);

/// Writes one shape after the other under one numbering: what they share is written once. Definitions that
/// were written have to live as long as the dumper.
class ShapeDumper {
public:
    /// Every line begins with `indent` steps of two blanks.
    explicit ShapeDumper(std::ostream& out, std::size_t indent = 0);
    ~ShapeDumper();

    void dump(const Shape& shape);

private:
    class Lines;
    std::unique_ptr<Lines> lines_;
};

}  // namespace veltrane::kernel
