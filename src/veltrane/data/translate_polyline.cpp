#include "veltrane/data/translate_polyline.hpp"

#include "veltrane/data/free_geometry.hpp"
#include "veltrane/data/object_coordinates.hpp"
#include "veltrane/data/polyline_mesh.hpp"
#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <utility>

namespace veltrane {
namespace {

constexpr const char kNoVertices[] = "Vertices in the Polyline are absent";
constexpr const char kNoCells[] = "Invalid parameters of polyline for mesh";
constexpr const char kNothing[] = "Geometry are not translated";

Ref<DxfData_GeometrySequence> pieces(const std::vector<const DxfEnt_Vertex*>& vertices, bool is_closed,
                                     double scale) {
    auto sequence = make<DxfData_GeometrySequence>();
    const auto append = [&](const DxfEnt_Vertex& from, const DxfEnt_Vertex& to) {
        if (auto piece = DxfData_TranslatePolyline::GetCurve(from, to, scale)) {
            sequence->Append(std::move(piece));
        }
    };
    for (std::size_t i = 0; i + 1 < vertices.size(); ++i) append(*vertices[i], *vertices[i + 1]);
    if (sequence->IsEmpty()) {
        sequence->Append(make<kernel::FreePoint>(scale * vertices.front()->LocationPoint));
    } else if (is_closed) {
        append(*vertices.back(), *vertices.front());
    }
    return sequence;
}

/// The vertices of a plane polyline stand in the object coordinate system, elevation included; those of a
/// polyline in space stand in the world.
Ref<DxfData_GeometrySequence> polyline_geometry(const DxfEnt_Polyline& polyline, const kernel::Vector& normal,
                                                double scale) {
    const bool is_closed = polyline.PolylineFlag & DxfData::kPolylineClosed;
    auto sequence = pieces(DxfData::vertices_of(polyline), is_closed, scale);
    const bool is_in_space = polyline.PolylineFlag & DxfData::kPolylineInSpace;
    const kernel::Vector tilt = polyline.ExtrusionDir - kernel::Vector(0, 0, 1);
    const bool is_flat = polyline.Elevation.z() == 0 && tilt.cwiseAbs().maxCoeff() <= 1e-12;
    if (!is_in_space && !is_flat) DxfData::transform(*sequence, DxfData::ECSToWCS(normal));
    return sequence;
}

}  // namespace

Ref<kernel::Curve> DxfData_TranslatePolyline::GetCurve(const DxfEnt_Vertex& vertex, const DxfEnt_Vertex& next,
                                                       double scale) {
    return DxfData::bulged_segment(scale * vertex.LocationPoint, scale * next.LocationPoint, vertex.Bulge);
}

Ref<DxfData_GeometrySequence> DxfData_TranslatePolyline::MakeGeometry(DxfData_TransferContext& context,
                                                                      const Ref<DxfSection_Object>& record,
                                                                      double& thickness,
                                                                      kernel::Vector& extrusion) const {
    context.ClearStatus();
    const auto* polyline = as<const DxfEnt_Polyline>(record.get());
    if (!polyline) {
        context.AddStatus(DxfData_Status::Fail1);
        return nullptr;
    }
    const double scale = context.UnitScale();
    thickness = scale * polyline->Thickness;
    extrusion = kernel::unit(polyline->ExtrusionDir);
    Ref<DxfData_GeometrySequence> geometry;
    if (context.FindGeometry(record.get(), geometry)) return geometry;

    const char* fail = nullptr;
    if (DxfData::vertices_of(*polyline).empty()) {
        fail = kNoVertices;
    } else if (DxfData::is_mesh(*polyline)) {
        const DxfData_CellNet cells = DxfData::mesh_cells(*polyline, scale);
        if (cells.is_empty()) fail = kNoCells;
        geometry = cells.geometry();
    } else {
        geometry = polyline_geometry(*polyline, extrusion, scale);
    }
    if (!fail && length(geometry) == 0) fail = kNothing;
    if (fail) context.AddFail(record, Message::own(fail));
    context.AddStatus(fail ? DxfData_Status::Fail1 : DxfData_Status::Done1);
    context.SetGeometry(record, geometry);
    return geometry;
}

kernel::Shape DxfData_TranslatePolyline::MakeShape(DxfData_TransferContext& context,
                                                   const Ref<DxfSection_Object>& record,
                                                   const Progress& progress) const {
    const auto* polyline = as<const DxfEnt_Polyline>(record.get());
    if (!polyline || !DxfData::is_mesh(*polyline) || DxfData::vertices_of(*polyline).empty()) {
        return DxfData_TranslateObject::MakeShape(context, record, progress);
    }
    context.ClearStatus();
    kernel::Shape shape;
    if (context.HasTranslated(record, shape)) return shape;
    shape = mesh_shape(context, record, *polyline);
    context.SetTransferResult(record, shape);
    context.AddStatus(shape.is_null() ? DxfData_Status::Fail2 : DxfData_Status::Done2);
    return shape;
}

kernel::Shape DxfData_TranslatePolyline::mesh_shape(DxfData_TransferContext& context,
                                                    const Ref<DxfSection_Object>& record,
                                                    const DxfEnt_Polyline& polyline) {
    const DxfData_CellNet cells = DxfData::mesh_cells(polyline, context.UnitScale());
    if (cells.is_empty()) {
        context.AddFail(record, kNoCells);
        return {};
    }
    std::vector<kernel::Shape> shapes = cells.shapes();
    const auto lost = std::erase_if(shapes, [](const kernel::Shape& shape) { return shape.is_null(); });
    std::erase_if(shapes, [](const kernel::Shape& shape) { return shape.is(kernel::ShapeKind::Vertex); });
    if (shapes.empty()) {
        context.AddFail(record, kNothing);
        return {};
    }
    if (lost > 0) {
        context.AddWarning(record, {"%d cells of the mesh give no shape", static_cast<int>(lost)});
    }
    return kernel::make_compound(std::move(shapes));
}

}  // namespace veltrane
