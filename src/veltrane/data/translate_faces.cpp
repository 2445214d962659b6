#include "veltrane/data/translate_faces.hpp"

#include "veltrane/data/object_coordinates.hpp"
#include "veltrane/kernel/algo/prism.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/math/tolerance.hpp"

#include <cmath>

namespace veltrane {
namespace {

DxfData_CellNet cell_of(const std::vector<kernel::Point>& corners) {
    DxfData_CellNet net(corners);
    net.add({0, 1, 2, 3});
    return net;
}

}  // namespace

Ref<DxfData_GeometrySequence> DxfData_TranslateCell::MakeGeometry(DxfData_TransferContext& context,
                                                                  const Ref<DxfSection_Object>& record,
                                                                  double& thickness,
                                                                  kernel::Vector& extrusion) const {
    context.ClearStatus();
    const Corners corners = corners_of(*record, context.UnitScale());
    if (corners.points.empty()) {
        context.AddStatus(DxfData_Status::Fail1);
        return nullptr;
    }
    thickness = corners.thickness;
    extrusion = corners.extrusion;
    Ref<DxfData_GeometrySequence> geometry;
    if (context.FindGeometry(record.get(), geometry)) return geometry;
    geometry = cell_of(corners.points).geometry();
    context.AddStatus(DxfData_Status::Done1);
    context.SetGeometry(record, geometry);
    return geometry;
}

kernel::Shape DxfData_TranslateCell::MakeShape(DxfData_TransferContext& context,
                                               const Ref<DxfSection_Object>& record, const Progress&) const {
    context.ClearStatus();
    kernel::Shape shape;
    if (context.HasTranslated(record, shape)) return shape;
    Corners corners;
    try {
        corners = corners_of(*record, context.UnitScale());
        if (!corners.points.empty()) shape = cell_of(corners.points).shapes().front();
    } catch (const kernel::KernelError&) {
    }
    if (shape.is_null()) {
        context.AddFail(record, "Shape is not created");
        context.AddStatus(DxfData_Status::Fail1);
    }
    if (!shape.is_null() && std::abs(corners.thickness) >= kernel::kZeroLength) {
        try {
            shape = kernel::prism(shape, corners.thickness * corners.extrusion);
        } catch (const kernel::KernelError&) {
            context.AddWarning(record, "Exception is raised in the creation of prism");
        }
    }
    context.SetTransferResult(record, shape);
    return shape;
}

DxfData_TranslateCell::Corners DxfData_TranslateFace3d::corners_of(const DxfSection_Object& record,
                                                                   double scale) const {
    const auto* face = as<const DxfEnt_Face3d>(&record);
    if (!face) return {};
    return {{scale * face->FirstCorner, scale * face->SecondCorner, scale * face->ThirdCorner,
             scale * face->FourthCorner}};
}

/// The record lists its corners row by row: third and fourth change places on the way round.
DxfData_TranslateCell::Corners DxfData_TranslateTrace::corners_of(const DxfSection_Object& record,
                                                                  double scale) const {
    const auto* trace = as<const DxfEnt_Trace>(&record);
    if (!trace) return {};
    Corners corners{{}, scale * trace->Thickness, kernel::unit(trace->ExtrusionDir)};
    for (const kernel::Point& corner :
         {trace->FirstCorner, trace->SecondCorner, trace->FourthCorner, trace->ThirdCorner}) {
        kernel::Point point = scale * (corner + kernel::Vector(0, 0, trace->Elevation0));
        DxfData::ECSToWCS(corners.extrusion, point);
        corners.points.push_back(point);
    }
    return corners;
}

}  // namespace veltrane
