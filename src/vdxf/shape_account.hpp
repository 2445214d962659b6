// What became of the records of a drawing on their way to shapes and from there to a file.
#pragma once

#include "vdxf/conversion.hpp"

#include <string_view>

namespace veltrane::tool {

/// The account of the translation.
ConversionAccount shape_account(Drawing& drawing, const Console& console);

/// Adds what is in the drawing and has a shape, but is not to be seen in the `what` ("picture") made of it.
void tell_omissions(const Scene& scene, std::string_view what, ConversionAccount& account);

}  // namespace veltrane::tool
