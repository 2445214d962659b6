// The shapes of a drawing as text.
#pragma once

#include "veltrane/exchange/read_process.hpp"
#include "veltrane/output/record_walk.hpp"

#include <iosfwd>

namespace veltrane {

/// Writes, for every record of the ENTITIES section that gave a shape, a line that names it by type, handle
/// and layer and tells its length and area, the dump of the shape below it, and at the end the sums and the
/// box around everything bounded. What shapes share, as the inserts of a block do, is dumped where it comes
/// first and referred to by its number afterwards. Lengths are in millimetres. Throws nothing: a shape that
/// cannot be measured is dumped without its measures. The stream's state tells whether all was written.
void write_shape_text(std::ostream& out, const DxfSection_Model& model, const ReadProcess& process,
                      const RecordNames& names = {});

}  // namespace veltrane
