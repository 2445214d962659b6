// Help for somebody who mistyped a word.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace veltrane::tool {

/// The candidate that the word most likely stands for; empty when none is close.
std::string nearest(std::string_view word, const std::vector<std::string>& candidates);

/// " Did you mean X?", or nothing when no candidate is close.
std::string did_you_mean(std::string_view word, const std::vector<std::string>& candidates);

/// "a, b and c".
std::string list_of(const std::vector<std::string>& words);

}  // namespace veltrane::tool
