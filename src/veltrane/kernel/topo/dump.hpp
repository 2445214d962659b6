// A shape as indented text, for people.
#pragma once

#include "veltrane/kernel/topo/shape.hpp"

#include <iosfwd>
#include <string>

namespace veltrane::kernel {

/// Writes the topology below a shape, a line per use: number of the definition, kind, orientation, placement
/// if any, and the geometry in short. A definition met again is referred to by its number and not repeated.
/// Below a depth of 32 the indentation stays and the depth is written as a number instead.
void dump(std::ostream& out, const Shape& shape);
std::string dump(const Shape& shape);

}  // namespace veltrane::kernel
