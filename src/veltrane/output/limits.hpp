// Limits of scenes, pictures and meshes, by name. Internal to the folder.
#pragma once

#include <cstddef>

namespace veltrane {

/// Parts of outlines in one picture. Beyond that no picture shows anything but ink; what matters is that
/// blocks within blocks within blocks come to an end.
inline constexpr std::size_t kMostParts = 20'000'000;

/// Parts of blocks, counted once for each style of insert. Blocks beyond that look like their inserts.
inline constexpr std::size_t kMostBlockParts = 4'000'000;

/// Triangles, segments and points of a mesh, those of a block counted once: a gigabyte or two of memory.
inline constexpr std::size_t kMostMeshCells = 10'000'000;
/// The same with all copies written out, in structures that need ten times as much.
inline constexpr std::size_t kMostFlatMeshCells = 4'000'000;
/// Inserts, those in inserts of blocks counted each time.
inline constexpr std::size_t kMostMeshNodes = 1'000'000;

}  // namespace veltrane
