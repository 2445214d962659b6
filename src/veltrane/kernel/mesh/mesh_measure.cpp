#include "veltrane/kernel/mesh/mesh_measure.hpp"

#include <algorithm>
#include <utility>

namespace veltrane::kernel {

namespace {

using Side = std::pair<std::uint32_t, std::uint32_t>;

/// The sides of all triangles as they run, sorted.
std::vector<Side> sorted_sides(const Mesh& mesh) {
    std::vector<Side> sides;
    sides.reserve(3 * mesh.triangles.size());
    for (const auto& [a, b, c] : mesh.triangles) sides.insert(sides.end(), {{a, b}, {b, c}, {c, a}});
    std::sort(sides.begin(), sides.end());
    return sides;
}

}  // namespace

bool is_watertight(const Mesh& mesh) {
    const std::vector<Side> sides = sorted_sides(mesh);
    std::vector<Side> back = sides;
    for (Side& side : back) std::swap(side.first, side.second);
    std::sort(back.begin(), back.end());
    return !sides.empty() && sides == back;
}

double volume(const Mesh& mesh) {
    if (mesh.triangles.empty()) return 0;
    // From a point of the mesh, so that a far origin costs no digits.
    const Point origin = mesh.points[mesh.triangles.front()[0]];
    double sum = 0;
    for (const auto& [a, b, c] : mesh.triangles) {
        sum += cross(mesh.points[a] - origin, mesh.points[b] - origin).dot(mesh.points[c] - origin);
    }
    return sum / 6;
}

double area(const Mesh& mesh) {
    double sum = 0;
    for (const auto& [a, b, c] : mesh.triangles) {
        sum += cross(mesh.points[b] - mesh.points[a], mesh.points[c] - mesh.points[a]).norm();
    }
    return sum / 2;
}

long long euler_number(const Mesh& mesh) {
    std::vector<Side> sides = sorted_sides(mesh);
    for (Side& side : sides) {
        if (side.first > side.second) std::swap(side.first, side.second);
    }
    std::sort(sides.begin(), sides.end());
    sides.erase(std::unique(sides.begin(), sides.end()), sides.end());
    std::vector<bool> used(mesh.points.size());
    for (const MeshTriangle& triangle : mesh.triangles) {
        for (const std::uint32_t place : triangle) used[place] = true;
    }
    return std::count(used.begin(), used.end(), true) - static_cast<long long>(sides.size()) +
           static_cast<long long>(mesh.triangles.size());
}

}  // namespace veltrane::kernel
