// The curves of a hatch's boundary loops.
#pragma once

#include "veltrane/data/transfer_context.hpp"
#include "veltrane/ent/hatch.hpp"

namespace veltrane::DxfData {

/// Which of the ways to state a loop are taken.
enum class HatchPaths {
    Edges,  ///< lines and arcs, these always counter-clockwise and with angles for parameters
    All,    ///< also clockwise arcs, splines and polylines; angles of ellipses are true ones
};

struct HatchCurves {
    Ref<DxfData_GeometrySequence> curves;  ///< in the plane z = 0 of the hatch, in the order of the loop
    int left_out = 0;                      ///< edges and polylines that gave none although they should
};

HatchCurves hatch_curves(const DxfEnt_HatchBoundary& loop, HatchPaths paths, double scale);

}  // namespace veltrane::DxfData
