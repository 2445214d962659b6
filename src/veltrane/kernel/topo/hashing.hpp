// Hashes of numbers and of definitions, for the maps of the kernel.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace veltrane::kernel {

/// Works a number into a hash so that each of its bits reaches the low bits, which pick the bucket.
inline std::size_t mixed(std::size_t seed, std::size_t value) {
    const std::size_t product = (seed ^ value) * 0x9e3779b97f4a7c15u;
    return product ^ product >> 32;
}
/// 0 and -0 are equal, so they get one hash.
inline std::size_t mixed(std::size_t seed, double value) {
    return mixed(seed, std::bit_cast<std::size_t>(value + 0.0));
}

/// A definition seen under a linear map.
struct SeenDefinition {
    const Definition* definition;
    Matrix3 linear;
    bool operator==(const SeenDefinition&) const = default;
};
struct SeenDefinitionHash {
    std::size_t operator()(const SeenDefinition& seen) const noexcept {
        std::size_t hash = reinterpret_cast<std::uintptr_t>(seen.definition);
        for (int i = 0; i < 9; ++i) hash = mixed(hash, seen.linear.data()[i]);
        return hash;
    }
};

}  // namespace veltrane::kernel
