// Finds the records that two drawings have in common.
#pragma once

#include "veltrane/file/difference_filter.hpp"
#include "veltrane/file/record_tree.hpp"

namespace veltrane {

/// Sets the partners in both trees, by the rules of compare_drawings. Differences in the ignored fields do
/// not make records unequal, and neither do handles.
void pair_records(RecordTree& before, RecordTree& after, const std::vector<std::string>& ignored);

}  // namespace veltrane
