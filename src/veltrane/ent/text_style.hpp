// The text style of records that name none.
#pragma once

#include "veltrane/base/text.hpp"

namespace veltrane {

inline constexpr const char* kStandardTextStyle = "STANDARD";

/// One text for all records, which come by the million.
inline const Text& standard_text_style() {
    static const Text name(kStandardTextStyle);
    return name;
}

}  // namespace veltrane
