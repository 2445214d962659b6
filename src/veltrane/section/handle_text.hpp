// Handles as text.
#pragma once

#include "veltrane/base/text.hpp"

#include <cstdint>
#include <string_view>

namespace veltrane {

struct DxfSection {
    /// Upper-case hexadecimal without leading zeros.
    static Text HexToString(std::int32_t handle);
    /// Hexadecimal of either case, after optional white space and "0x"; scanning stops at the first other
    /// character. -1 when there is no digit, or when the number does not fit in 32 bits.
    static std::int32_t StringToHex(std::string_view text);
};

}  // namespace veltrane
