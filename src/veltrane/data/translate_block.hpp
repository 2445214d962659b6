// BLOCK: the shapes of its entities together.
#pragma once

#include "veltrane/data/translate_object.hpp"
#include "veltrane/section/block.hpp"

namespace veltrane {

class DxfData_TranslateBlock : public Typed<DxfData_TranslateBlock, DxfData_TranslateObject> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslateBlock";

    /// A block is topology from the start: null.
    Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext& context,
                                               const Ref<DxfSection_Object>& record, double& thickness,
                                               kernel::Vector& extrusion) const override;
    /// A compound in the block's own co-ordinates, made once in a transfer. Null for an anonymous block while
    /// the parameter "read.dxf.anonymous.blocks" is off. The blocks it inserts are translated first, the
    /// innermost ones before all others, without recursion.
    kernel::Shape MakeShape(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                            const Progress& progress) const override;

private:
    static kernel::Shape build(DxfData_TransferContext& context, const Ref<DxfSection_Block>& block,
                               const Progress& progress);
    static void build_nested(DxfData_TransferContext& context, const Ref<DxfSection_Block>& block,
                             const Progress& progress);
};

}  // namespace veltrane
