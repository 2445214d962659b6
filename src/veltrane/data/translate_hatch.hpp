// HATCH: the region within its boundary loops.
#pragma once

#include "veltrane/data/translate_object.hpp"
#include "veltrane/ent/hatch.hpp"

namespace veltrane {

class DxfData_TranslateHatch : public Typed<DxfData_TranslateHatch, DxfData_TranslateObject> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslateHatch";

    /// A hatch is topology from the start: null.
    Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext& context,
                                               const Ref<DxfSection_Object>& record, double& thickness,
                                               kernel::Vector& extrusion) const override;
    /// Planar faces with islands; of solid hatches only. A loop is taken from the entities it was made of
    /// where it names some, else from its own lines and arcs, in drawing units; a single loop of several of
    /// them gives but the wire. While the parameter "read.dxf.hatchentities" is on, every hatch gives faces,
    /// with boundaries of all kinds, in millimetres, as the loops themselves state them, and the elevation is
    /// measured along the extrusion.
    kernel::Shape MakeShape(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                            const Progress& progress) const override;
};

}  // namespace veltrane
