// Names of a drawing as they may stand in other files. They come in the code page of the drawing, and a file
// is to be well-formed whatever they hold.
#pragma once

#include <string>
#include <string_view>

namespace veltrane {

/// UTF-8: bytes that are none are taken for Latin-1, and control characters become blanks.
std::string utf8_name(std::string_view text);

/// The same for the inside of quotes in XML, and in JSON.
std::string xml_name(std::string_view text);
std::string json_name(std::string_view text);

}  // namespace veltrane
