// Fields of records that the version of a DXF file leaves no place for.
#pragma once

#include "vdxf/losses.hpp"

#include <vector>

namespace veltrane::tool {

/// Compares what the records of a drawing write for its own $ACADVER with what they write for the newest and
/// the oldest version: groups that say more than a fresh record would, and are missing. Time is that of
/// writing the drawing three times.
std::vector<Loss> version_losses(const DxfSection_Model& model);

}  // namespace veltrane::tool
