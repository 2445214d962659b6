// Limits of scenes and pictures, by name. Internal to the folder.
#pragma once

#include <cstddef>

namespace veltrane {

/// Parts of outlines in one picture. Beyond that no picture shows anything but ink; what matters is that
/// blocks within blocks within blocks come to an end.
inline constexpr std::size_t kMostParts = 20'000'000;

/// Parts of blocks, counted once for each style of insert. Blocks beyond that look like their inserts.
inline constexpr std::size_t kMostBlockParts = 4'000'000;

}  // namespace veltrane
