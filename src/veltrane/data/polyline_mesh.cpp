#include "veltrane/data/polyline_mesh.hpp"

#include <cstdlib>

namespace veltrane::DxfData {
namespace {

bool is_face(const DxfEnt_Vertex& vertex) {
    return (vertex.Flags & 128) && !(vertex.Flags & 64);
}

std::vector<kernel::Point> locations(const std::vector<const DxfEnt_Vertex*>& vertices, double scale) {
    std::vector<kernel::Point> points;
    for (const DxfEnt_Vertex* vertex : vertices) {
        if (!is_face(*vertex)) points.push_back(scale * vertex->LocationPoint);
    }
    return points;
}

void add_faces(DxfData_CellNet& net, const std::vector<const DxfEnt_Vertex*>& vertices, std::size_t count) {
    for (const DxfEnt_Vertex* face : vertices) {
        if (!is_face(*face)) continue;
        DxfData_CellNet::Corners corners{};
        std::size_t known = 0;
        std::int64_t number = 1;
        for (const std::int32_t index : {face->PolyfaceMeshIndex1, face->PolyfaceMeshIndex2,
                                         face->PolyfaceMeshIndex3, face->PolyfaceMeshIndex4}) {
            if (index != 0) number = std::abs(std::int64_t{index});  // below 0 its edge is hidden
            if (static_cast<std::size_t>(number) > count) break;
            corners[known++] = static_cast<std::size_t>(number - 1);
        }
        if (known < 3) continue;
        if (known == 3) corners[3] = corners[2];
        net.add(corners);
    }
}

void add_grid(DxfData_CellNet& net, const DxfEnt_Polyline& mesh, std::size_t count) {
    if (mesh.MeshMVertexCount <= 0 || mesh.MeshNVertexCount <= 0) return;
    const auto rows = static_cast<std::size_t>(mesh.MeshMVertexCount);
    const auto columns = static_cast<std::size_t>(mesh.MeshNVertexCount);
    if (rows * columns != count) return;
    const std::size_t last_row = rows - (mesh.PolylineFlag & kPolylineClosed ? 0 : 1);
    const std::size_t last_column = columns - (mesh.PolylineFlag & kMeshClosedInN ? 0 : 1);
    for (std::size_t j = 0; j < last_column; ++j) {
        for (std::size_t i = 0; i < last_row; ++i) {
            const std::size_t here = i * columns, below = (i + 1) % rows * columns;
            const std::size_t next = (j + 1) % columns;
            net.add({here + j, below + j, below + next, here + next});
        }
    }
}

}  // namespace

std::vector<const DxfEnt_Vertex*> vertices_of(const DxfEnt_Polyline& polyline) {
    std::vector<const DxfEnt_Vertex*> vertices;
    if (!polyline.Objects) return vertices;
    for (const Ref<DxfSection_Object>& record : *polyline.Objects) {
        if (const auto* vertex = as<const DxfEnt_Vertex>(record.get())) vertices.push_back(vertex);
    }
    return vertices;
}

DxfData_CellNet mesh_cells(const DxfEnt_Polyline& polyline, double scale) {
    const auto vertices = vertices_of(polyline);
    std::vector<kernel::Point> points = locations(vertices, scale);
    const std::size_t count = points.size();
    DxfData_CellNet net(std::move(points));
    if (polyline.PolylineFlag & kPolygonMesh) {
        add_grid(net, polyline, count);
    } else {
        add_faces(net, vertices, count);
    }
    return net;
}

}  // namespace veltrane::DxfData
