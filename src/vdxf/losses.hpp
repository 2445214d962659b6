// What of a drawing does not reach the DXF file that is written from it.
#pragma once

#include "veltrane/section/model.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace veltrane::tool {

struct Loss {
    std::string what;
    std::size_t count = 0;
    int first_line = 0;  ///< of the file that was read; 0 when not known
};

/// What reading skipped or could not make sense of, and what was read but is never written: extended data,
/// and the contents of ACDSDATA records. Empty when the file written says all that the file read said.
std::vector<Loss> losses_of_rewriting(const DxfSection_Model& model);

}  // namespace veltrane::tool
