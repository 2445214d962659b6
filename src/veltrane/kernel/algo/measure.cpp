#include "veltrane/kernel/algo/measure.hpp"

#include "veltrane/kernel/algo/face_integral.hpp"
#include "veltrane/kernel/algo/moments.hpp"
#include "veltrane/kernel/algo/plane_moments.hpp"
#include "veltrane/kernel/algo/shell.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/compound_fold.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <array>
#include <cmath>
#include <limits>

namespace veltrane::kernel {
namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();

void add(double& sum, double value, const Ref<const Placement>&) {
    sum += value;
}

double edge_length(const Shape& edge) {
    const EdgeDefinition& definition = edge_definition(edge);
    return definition.range().is_bounded() ? length(*definition.curve(), definition.range()) : kEndless;
}

/// Length of anything but a compound. Placements do not matter for lengths, but
/// tell edges apart.
double simple_length(const Shape& shape) {
    if (shape.is(ShapeKind::Edge)) return edge_length(shape);
    double sum = 0;
    for (const Shape& edge :
         shape.is(ShapeKind::Wire) ? own_children(shape) : distinct_sub_shapes(shape, ShapeKind::Edge)) {
        sum += edge_length(edge);
    }
    return sum;
}

bool is_unbounded(const FaceDefinition& face) {
    for (const Loop& loop : face.loops()) {
        for (const Shape& edge : group_definition(loop.wire).children()) {
            if (!edge_definition(edge).range().is_bounded()) return true;
        }
    }
    const Surface& surface = *face.surface();
    return face.loops().empty() && !(surface.u_range().is_bounded() && surface.v_range().is_bounded());
}

double face_area(const FaceDefinition& face) {
    if (is_unbounded(face)) return kEndless;
    const Surface& surface = *face.surface();
    if (surface.kind() != SurfaceKind::Plane) {
        return std::abs(integrate(face, [&](double u, double v) {
            const SurfaceDerivatives at = surface.derivatives(u, v);
            return cross(at.du, at.dv).norm();
        }));
    }
    const Point2 base = point_of(face.loops().front());
    double sum = 0;
    for (const Loop& loop : face.loops()) sum += loop_moments(loop, base).area;
    return std::abs(sum);
}

double simple_area(const Shape& shape) {
    double sum = 0;
    visit(shape, ShapeKind::Face, [&](const Shape& face) {
        sum += face_area(face_definition(face));
        return true;
    });
    return sum;
}

/// Of a solid or a shell whose faces bound it on all sides.
Moments inner_moments(const Shape& shape) {
    const Point about = some_point(shape);
    Moments sum;
    visit(shape, ShapeKind::Face, [&](const Shape& face) {
        sum += cone_moments(face, about);
        return true;
    });
    return shifted(sum, about);
}

bool is_closed_shell(const Shape& shell) {
    const std::vector<Shape> faces = children(shell);
    return !faces.empty() && make_shell(faces).is_closed;
}

double simple_volume(const Shape& shape) {
    if (shape.is(ShapeKind::Shell)) return is_closed_shell(shape) ? inner_moments(shape).size : 0;
    return shape.kind() > ShapeKind::Shell ? inner_moments(shape).size : 0;
}

/// Moments by dimension, from vertices to solids.
struct Masses {
    std::array<Moments, 4> by_dimension;
    int dimension = -1;  ///< the richest that is there

    void add(int of_dimension, const Moments& moments) {
        dimension = std::max(dimension, of_dimension);
        by_dimension[static_cast<std::size_t>(of_dimension)] += moments;
    }
};

Masses simple_masses(const Shape& shape) {
    Masses masses;
    const Point about = some_point(shape);
    const auto add_each = [&](int dimension, ShapeKind kind, auto moments) {
        visit(shape, kind, [&](const Shape& part) {
            masses.add(dimension, shifted(moments(part, about), about));
            return true;
        });
    };
    if (shape.kind() >= ShapeKind::Solid) {
        masses.add(3, inner_moments(shape));
    } else if (shape.kind() >= ShapeKind::Face) {
        add_each(2, ShapeKind::Face, area_moments);
    } else if (shape.kind() >= ShapeKind::Edge) {
        add_each(1, ShapeKind::Edge, length_moments);
    } else {
        masses.add(0, {1, vertex_point(shape)});
    }
    return masses;
}

void add_masses(Masses& sum, const Masses& other, const Ref<const Placement>& placement) {
    for (int dimension = 0; dimension <= other.dimension; ++dimension) {
        const Moments& moments = other.by_dimension[static_cast<std::size_t>(dimension)];
        if (dimension < other.dimension && moments.size == 0) continue;
        sum.add(dimension, placement ? moved(moments, placement->transform()) : moments);
    }
}

}  // namespace

double length(const Shape& shape) {
    return shape.is_null() ? 0 : fold_compounds(shape, 0.0, simple_length, add);
}

double area(const Shape& shape) {
    return shape.is_null() ? 0 : fold_compounds(shape, 0.0, simple_area, add);
}

double volume(const Shape& shape) {
    return shape.is_null() ? 0 : fold_compounds(shape, 0.0, simple_volume, add);
}

Point centre(const Shape& shape) {
    Masses masses;
    if (!shape.is_null()) {
        add_masses(masses, fold_compounds(shape, Masses(), simple_masses, add_masses), shape.placement());
    }
    if (masses.dimension < 0) throw KernelError("The shape has no centre");
    const Moments& richest = masses.by_dimension[static_cast<std::size_t>(masses.dimension)];
    const Point result = richest.first / richest.size;
    if (!is_usable(result)) throw KernelError("The shape has no centre");
    return result;
}

}  // namespace veltrane::kernel
