// Random numbers that are the same with every compiler and library.
#pragma once

#include <cstdint>
#include <string_view>

namespace bench {

/// SplitMix64 (Steele, Lea, Flood: Fast splittable pseudorandom number generators, OOPSLA 2014).
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    /// From 0 to below 1.
    double unit() { return static_cast<double>(next() >> 11) * 0x1p-53; }
    double between(double low, double high) { return low + (high - low) * unit(); }
    /// From `low` to below `high`.
    int integer(int low, int high) {
        return low + static_cast<int>(next() % static_cast<std::uint64_t>(high - low));
    }
    bool chance(double share) { return unit() < share; }

private:
    std::uint64_t next() {
        std::uint64_t z = state_ += 0x9E3779B97F4A7C15u;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    std::uint64_t state_;
};

}  // namespace bench
