// Faces to triangles: the time of a face, planar or curved, alone or in a large model.
#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/algo/prism.hpp"
#include "veltrane/kernel/algo/shell.hpp"
#include "veltrane/kernel/algo/wire_repair.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/mesh/mesh.hpp"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <vector>

namespace {

using namespace veltrane::kernel;

/// A hilly net of triangles that share their edges: side x side x 2 planar faces.
Shape net(int side) {
    std::vector<Point> points;
    std::vector<std::vector<std::size_t>> triangles;
    const auto corner = [side](int row, int column) {
        return static_cast<std::size_t>(row * (side + 1) + column);
    };
    for (int row = 0; row <= side; ++row) {
        for (int column = 0; column <= side; ++column) {
            points.emplace_back(column, row, (row * 7 + column * 5) % 11 * 0.1);
        }
    }
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            triangles.push_back({corner(row, column), corner(row, column + 1), corner(row + 1, column + 1)});
            triangles.push_back({corner(row, column), corner(row + 1, column + 1), corner(row + 1, column)});
        }
    }
    return make_polygon_shell(points, triangles).report.shell;
}

/// Round studs: each a cylinder between two discs.
Shape studs(int count) {
    std::vector<Shape> bodies;
    for (int i = 0; i < count; ++i) {
        const Frame frame = Frame::from_normal({3.0 * (i % 100), 3.0 * (i / 100), 0}, {0, 0, 1});
        const Shape circle = make_edge(veltrane::Ref<Curve>(veltrane::make<Circle>(frame, 1)));
        bodies.push_back(prism(make_planar_face(make_wire(std::vector<Shape>{circle})).face, {0, 0, 2}));
    }
    return make_compound(std::move(bodies));
}

void run(benchmark::State& state, const Shape& shape) {
    std::size_t faces = 0, triangles = 0;
    for (auto _ : state) {
        const Mesh result = mesh(shape, {.deflection = 0.01, .angle = 0.35});
        faces = result.faces.size();
        triangles = result.triangles.size();
    }
    state.counters["faces"] = static_cast<double>(faces);
    state.counters["triangles"] = static_cast<double>(triangles);
    state.counters["s/face"] =
        benchmark::Counter(static_cast<double>(faces),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void mesh_planar_faces(benchmark::State& state) {
    run(state, net(static_cast<int>(state.range(0))));
}
// Ten times as many faces may take ten times as long, and no more.
BENCHMARK(mesh_planar_faces)->Arg(71)->Arg(224)->Unit(benchmark::kMillisecond);

void mesh_studs(benchmark::State& state) {
    run(state, studs(static_cast<int>(state.range(0))));
}
BENCHMARK(mesh_studs)->Arg(334)->Arg(3334)->Unit(benchmark::kMillisecond);

}  // namespace
