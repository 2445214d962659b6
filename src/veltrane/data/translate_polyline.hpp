// POLYLINE with its vertices: plane and spatial polylines, polygon meshes and polyface meshes.
#pragma once

#include "veltrane/data/translate_object.hpp"
#include "veltrane/ent/polylines.hpp"
#include "veltrane/kernel/geom/curve.hpp"

namespace veltrane {

class DxfData_TranslatePolyline : public Typed<DxfData_TranslatePolyline, DxfData_TranslateObject> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslatePolyline";

    /// A mesh gives the sides of its cells.
    Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext& context,
                                               const Ref<DxfSection_Object>& record, double& thickness,
                                               kernel::Vector& extrusion) const override;
    /// A mesh gives a compound of its cells, which share edges and vertices.
    kernel::Shape MakeShape(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                            const Progress& progress) const override;

    /// The piece from a vertex to the next; null when they coincide. Throws kernel::KernelError.
    static Ref<kernel::Curve> GetCurve(const DxfEnt_Vertex& vertex, const DxfEnt_Vertex& next, double scale);

private:
    static kernel::Shape mesh_shape(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                                    const DxfEnt_Polyline& polyline);
};

}  // namespace veltrane
