// MLINE to the segments of its parallel lines.
#pragma once

#include "veltrane/data/translate_object.hpp"
#include "veltrane/ent/multiline.hpp"

namespace veltrane {

/// The vertices hold all that the style says of places; style, scale and fills are not looked at.
class DxfData_TranslateMLine : public Typed<DxfData_TranslateMLine, DxfData_TranslateObject> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslateMLine";

    Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext& context,
                                               const Ref<DxfSection_Object>& record, double& thickness,
                                               kernel::Vector& extrusion) const override;

    /// The segments from a vertex to the next, line after line; a line that is broken gives its dashes.
    /// Throws kernel::KernelError for a vertex without directions.
    static Ref<DxfData_GeometrySequence> TranlateVertexOfMLine(const DxfEnt_MLineVertex& vertex,
                                                               const DxfEnt_MLineVertex& next, double scale);
};

}  // namespace veltrane
