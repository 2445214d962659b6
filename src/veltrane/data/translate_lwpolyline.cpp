#include "veltrane/data/translate_lwpolyline.hpp"

#include "veltrane/data/free_geometry.hpp"
#include "veltrane/data/object_coordinates.hpp"
#include "veltrane/kernel/math/tolerance.hpp"

#include <cstdint>
#include <utility>

namespace veltrane {
namespace {

constexpr std::int32_t kClosedFlag = 1;

Ref<DxfData_GeometrySequence> pieces(const DxfEnt_LWPolyline& polyline, double scale) {
    auto sequence = make<DxfData_GeometrySequence>();
    const auto& vertices = polyline.Vertices->items();
    const auto at = [&](std::size_t number) -> kernel::Point {
        const kernel::Point2& point = vertices[number % vertices.size()]->VertexCoordinates;
        return scale * kernel::Point(point.x(), point.y(), 0);
    };
    const bool is_closed = polyline.PolylineFlag & kClosedFlag;
    for (std::size_t i = 0; i + (is_closed ? 0 : 1) < vertices.size(); ++i) {
        if (auto piece = DxfData::bulged_segment(at(i), at(i + 1), vertices[i]->Bulge)) {
            sequence->Append(std::move(piece));
        }
    }
    return sequence;
}

}  // namespace

Ref<DxfData_GeometrySequence> DxfData_TranslateLWPolyline::MakeGeometry(DxfData_TransferContext& context,
                                                                        const Ref<DxfSection_Object>& record,
                                                                        double& thickness,
                                                                        kernel::Vector& extrusion) const {
    context.ClearStatus();
    const auto* polyline = as<const DxfEnt_LWPolyline>(record.get());
    if (!polyline || !polyline->Vertices) {
        context.AddFail(record, "Vertices are missing");
        context.AddStatus(DxfData_Status::Fail1);
        return nullptr;
    }
    const double scale = context.UnitScale();
    thickness = scale * polyline->Thickness;
    extrusion = kernel::unit(polyline->ExtrusionDir);
    Ref<DxfData_GeometrySequence> geometry;
    if (context.FindGeometry(record.get(), geometry)) return geometry;

    geometry = pieces(*polyline, scale);
    const double elevation = scale * polyline->Elevation;
    if (elevation != 0 || kernel::angle_between(extrusion, {0, 0, 1}) > kernel::kAngular) {
        DxfData::transform(*geometry, DxfData::ECSToWCS(extrusion, {0, 0, elevation}, 0));
    }
    if (geometry->IsEmpty()) {
        context.AddFail(record, "Geometry are not translated");
        context.AddStatus(DxfData_Status::Fail1);
    } else {
        context.AddStatus(DxfData_Status::Done1);
    }
    context.SetGeometry(record, geometry);
    return geometry;
}

}  // namespace veltrane
