// INSERT: a block placed once or in rows and columns.
#pragma once

#include "veltrane/data/insert_placement.hpp"
#include "veltrane/data/translate_object.hpp"
#include "veltrane/ent/inserts.hpp"
#include "veltrane/section/block.hpp"

namespace veltrane {

class DxfData_TranslateInsert : public Typed<DxfData_TranslateInsert, DxfData_TranslateObject> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslateInsert";

    /// An insert is topology from the start: null.
    Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext& context,
                                               const Ref<DxfSection_Object>& record, double& thickness,
                                               kernel::Vector& extrusion) const override;
    /// The block's shape itself at another placement; scaled or mirrored ones are made once for all inserts
    /// with the same factors. Several copies give a compound, column by column within the rows. Throws
    /// kernel::DomainError for equal factors that are not 1 but closer to it than 1e-7.
    kernel::Shape MakeShape(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                            const Progress& progress) const override;

private:
    static kernel::Shape translate(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                                   const DxfEnt_Insert& insert, const Progress& progress);
    static kernel::Shape scaled(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                                const DxfSection_Block& block, const kernel::Shape& content,
                                const DxfData_InsertPlacement& placement);
    static kernel::Shape array(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                               const DxfEnt_Insert& insert, const kernel::Shape& first,
                               const DxfData_InsertPlacement& placement);
};

}  // namespace veltrane
