#include "veltrane/file/protocol.hpp"

#include "veltrane/section/model.hpp"

namespace veltrane {

bool DxfFile_Protocol::IsSuitableModel(const ExchangeModel* model) const {
    return as<const DxfSection_Model>(model) != nullptr;
}

Ref<ExchangeModel> DxfFile_Protocol::NewModel() const {
    return make<DxfSection_Model>();
}

void DxfFile_GeneralModule::FillSharedCase(int /*number*/, const Transient* record,
                                           EntityIterator& shared) const {
    const auto* container = as<const DxfSection_Object>(record);
    const auto contents = container ? container->GetSubObjects() : nullptr;
    if (!contents) return;
    for (const auto& item : *contents) shared.AddItem(item);
}

Text DxfFile_GeneralModule::Name(int /*number*/, const Transient* record, const ShareTool& shares) const {
    return shares.Model() ? shares.Model()->StringLabel(record) : Text();
}

}  // namespace veltrane
