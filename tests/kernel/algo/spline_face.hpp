// A face over the whole of a B-spline surface.
#pragma once

#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/geom/bspline_surface.hpp"
#include "veltrane/kernel/topo/definition.hpp"

#include <vector>

namespace veltrane::kernel::samples {

inline Shape spline_face(const Ref<BSplineSurface>& surface) {
    const Interval u = surface->u_range(), v = surface->v_range();
    const Shape edges[] = {
        make_edge(Ref<Curve>(surface->curve_at_v(v.first))),
        make_edge(Ref<Curve>(surface->curve_at_u(u.last))),
        make_edge(Ref<Curve>(surface->curve_at_v(v.last))).reversed(),
        make_edge(Ref<Curve>(surface->curve_at_u(u.first))).reversed(),
    };
    Loop loop{make_wire(edges),
              {{make_line2({0, v.first}, {1, 0})},
               {make_line2({u.last, 0}, {0, 1})},
               {make_line2({0, v.last}, {1, 0})},
               {make_line2({u.first, 0}, {0, 1})}}};
    return Shape(make<FaceDefinition>(surface, std::vector<Loop>{std::move(loop)}));
}

}  // namespace veltrane::kernel::samples
