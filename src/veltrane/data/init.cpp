#include "veltrane/data/init.hpp"

#include "veltrane/data/translate_block.hpp"
#include "veltrane/data/translate_curve.hpp"
#include "veltrane/data/translate_faces.hpp"
#include "veltrane/data/translate_hatch.hpp"
#include "veltrane/data/translate_insert.hpp"
#include "veltrane/data/translate_lwpolyline.hpp"
#include "veltrane/data/translate_mline.hpp"
#include "veltrane/data/translate_polyline.hpp"

#include <mutex>

namespace veltrane::DxfData {
namespace {

/// One translator for several record types.
template <class... Records>
void register_translator(const Ref<DxfData_TranslateObject>& translator) {
    (DxfData_TranslateObject::RegisterTool(Records::type(), translator), ...);
}

void register_translators() {
    register_translator<DxfEnt_Line, DxfEnt_Circle, DxfEnt_Ellipse, DxfEnt_Spline, DxfEnt_Ray, DxfEnt_XLine,
                        DxfEnt_Point>(make<DxfData_TranslateCurve>());
    register_translator<DxfEnt_LWPolyline>(make<DxfData_TranslateLWPolyline>());
    register_translator<DxfEnt_Polyline>(make<DxfData_TranslatePolyline>());
    register_translator<DxfEnt_Face3d>(make<DxfData_TranslateFace3d>());
    register_translator<DxfEnt_Trace>(make<DxfData_TranslateTrace>());  // and SOLID
    register_translator<DxfSection_Block>(make<DxfData_TranslateBlock>());
    register_translator<DxfEnt_Insert>(make<DxfData_TranslateInsert>());
    register_translator<DxfEnt_MLine>(make<DxfData_TranslateMLine>());
    register_translator<DxfEnt_Hatch>(make<DxfData_TranslateHatch>());
}

}  // namespace

void Init() {
    static std::once_flag once;
    std::call_once(once, register_translators);
}

}  // namespace veltrane::DxfData
