// Numbers for people.
#pragma once

#include <string>

namespace veltrane {

/// Up to so many significant digits, with a point in any locale.
std::string number_text(double value, int digits = 12);

}  // namespace veltrane
