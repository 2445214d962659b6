// The cells of a POLYLINE that is a mesh.
#pragma once

#include "veltrane/data/cell_net.hpp"
#include "veltrane/ent/polylines.hpp"

namespace veltrane::DxfData {

/// The bits of a polyline's flags that translation knows.
enum PolylineFlags : std::int32_t {
    kPolylineClosed = 1,  ///< a mesh: closed in M
    kPolylineInSpace = 8,
    kPolygonMesh = 16,
    kMeshClosedInN = 32,
    kPolyfaceMesh = 64,
};

inline bool is_mesh(const DxfEnt_Polyline& polyline) {
    return polyline.PolylineFlag & (kPolygonMesh | kPolyfaceMesh);
}

/// The VERTEX records of a polyline, in order.
std::vector<const DxfEnt_Vertex*> vertices_of(const DxfEnt_Polyline& polyline);

/// A polygon mesh has a cell for every four neighbours of its grid, and none when its vertices are not as
/// many as the grid asks for; a polyface mesh has one for every face of three corners or more. Whether edges
/// are visible makes no difference.
DxfData_CellNet mesh_cells(const DxfEnt_Polyline& polyline, double scale);

}  // namespace veltrane::DxfData
