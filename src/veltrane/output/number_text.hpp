// Numbers for people.
#pragma once

#include <string>

namespace veltrane {

/// Up to twelve significant digits, with a point in any locale.
std::string number_text(double value);

}  // namespace veltrane
