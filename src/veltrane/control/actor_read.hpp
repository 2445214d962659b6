// Turns the records of a drawing into shapes.
#pragma once

#include "veltrane/data/transfer_context.hpp"
#include "veltrane/exchange/actor.hpp"

namespace veltrane {

class DxfControl_ActorRead : public Typed<DxfControl_ActorRead, ReadActor> {
public:
    static constexpr const char* kTypeName = "DxfControl_ActorRead";

    /// Sections, and records that have a translator.
    bool Recognize(const Ref<Transient>& start) const override;
    /// The shape of one record, or, for a section, of its records in file order: a compound, which is bound
    /// to the section too, or the shape of its only record. Null when there is no shape, when `process` has
    /// no drawing and when the user asked to stop. Throws what a translator does not handle itself.
    Ref<TransferBinder> Transfer(const Ref<Transient>& start, const Ref<ReadProcess>& process,
                                 const Progress& progress) override;

    /// Takes $DWGCODEPAGE into the context. A name that is not known is warned of and changes nothing.
    static void initCodePage(DxfData_TransferContext& context, DxfSection_Model& model);
    /// Takes the number in $ACADVER into the context; without one nothing changes.
    static void initDXFVersion(DxfData_TransferContext& context, const DxfSection_Model& model);
    /// Takes the unit of $INSUNITS into context and model, or, with "read.dxf.insunits.scale" off, the
    /// model's own scale into the context.
    static void initInsunitsScale(DxfData_TransferContext& context, DxfSection_Model& model);

private:
    static kernel::Shape transfer_section(DxfData_TransferContext& context,
                                          const Ref<DxfSection_Section>& section, const Progress& progress);
};

}  // namespace veltrane
