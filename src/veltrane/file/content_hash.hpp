// A number for what a record holds.
#pragma once

#include "veltrane/file/difference_filter.hpp"

#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_set>

namespace veltrane {

/// Gives equal numbers to records of one class that differ in nothing but handles and ignored fields. It goes
/// by the dump, so it knows every kind of field that a record table may have.
class ContentHash {
public:
    explicit ContentHash(const DifferenceFilter& filter);
    std::size_t operator()(const DxfSection_Object& record);

private:
    bool is_left_out(std::string_view line) const;

    const DifferenceFilter& filter_;
    std::unordered_set<std::string> handle_labels_;
    std::ostringstream dump_;  // kept, so that its memory serves again
};

}  // namespace veltrane
