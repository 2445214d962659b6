// 3DFACE, SOLID and TRACE to faces.
#pragma once

#include "veltrane/data/cell_net.hpp"
#include "veltrane/data/translate_object.hpp"
#include "veltrane/ent/faces.hpp"

namespace veltrane {

/// What records of four corners have in common: they are a single cell.
class DxfData_TranslateCell : public Typed<DxfData_TranslateCell, DxfData_TranslateObject> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslateCell";

    /// The sides.
    Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext& context,
                                               const Ref<DxfSection_Object>& record, double& thickness,
                                               kernel::Vector& extrusion) const override;
    /// A face, or what the corners leave of it; swept when there is a thickness.
    kernel::Shape MakeShape(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                            const Progress& progress) const override;

protected:
    struct Corners {
        std::vector<kernel::Point> points;  ///< four, in running order; none for a record of another type
        double thickness = 0;
        kernel::Vector extrusion{0, 0, 1};
    };
    /// In millimetres and world co-ordinates. Throws kernel::KernelError.
    virtual Corners corners_of(const DxfSection_Object& record, double scale) const = 0;
};

class DxfData_TranslateFace3d : public Typed<DxfData_TranslateFace3d, DxfData_TranslateCell> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslateFace3d";

protected:
    Corners corners_of(const DxfSection_Object& record, double scale) const override;
};

/// For SOLID, too.
class DxfData_TranslateTrace : public Typed<DxfData_TranslateTrace, DxfData_TranslateCell> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslateTrace";

protected:
    Corners corners_of(const DxfSection_Object& record, double scale) const override;
};

}  // namespace veltrane
