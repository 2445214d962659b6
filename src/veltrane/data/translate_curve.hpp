// LINE, CIRCLE, ARC, ELLIPSE, SPLINE, RAY, XLINE and POINT to free geometry.
#pragma once

#include "veltrane/data/translate_object.hpp"
#include "veltrane/ent/curves.hpp"

namespace veltrane {

class DxfData_TranslateCurve : public Typed<DxfData_TranslateCurve, DxfData_TranslateObject> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslateCurve";

    Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext& context,
                                               const Ref<DxfSection_Object>& record, double& thickness,
                                               kernel::Vector& extrusion) const override;

private:
    // `scale` is in millimetres per drawing unit. Null when there is nothing to build. Throw KernelError.
    static Ref<DxfData_GeometrySequence> build(const DxfSection_Object& record, double scale);
    static Ref<DxfData_GeometrySequence> MakeLine(const DxfEnt_Line& line, double scale);
    static Ref<DxfData_GeometrySequence> MakeCircle(const DxfEnt_Circle& circle, double scale);
    static Ref<DxfData_GeometrySequence> MakeEllipse(const DxfEnt_Ellipse& ellipse, double scale);
    static Ref<DxfData_GeometrySequence> MakeSpline(const DxfEnt_Spline& spline, double scale);
    static Ref<DxfData_GeometrySequence> MakeRay(const DxfEnt_Ray& ray, double scale);
    static Ref<DxfData_GeometrySequence> MakeXLine(const DxfEnt_XLine& line, double scale);
};

}  // namespace veltrane
