// The current date and time as text.
#pragma once

#include <ctime>
#include <string>

namespace veltrane {

/// A date through a printf format with six integer fields: year, month, day, hour, minute, second.
std::string date_text(const char* format, const std::tm& date);
/// The same for now, in local time.
std::string current_date_text(const char* format);

}  // namespace veltrane
