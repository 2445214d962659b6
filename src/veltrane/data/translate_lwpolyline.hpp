// LWPOLYLINE to free geometry.
#pragma once

#include "veltrane/data/translate_object.hpp"
#include "veltrane/ent/polylines.hpp"

namespace veltrane {

/// A straight or circular piece for every vertex but, in an open polyline, the last; widths do not show. The
/// base class makes a wire of the pieces, and sweeps it when there is a thickness.
class DxfData_TranslateLWPolyline : public Typed<DxfData_TranslateLWPolyline, DxfData_TranslateObject> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslateLWPolyline";

    Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext& context,
                                               const Ref<DxfSection_Object>& record, double& thickness,
                                               kernel::Vector& extrusion) const override;
};

}  // namespace veltrane
