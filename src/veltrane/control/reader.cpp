#include "veltrane/control/reader.hpp"

#include "veltrane/control/controller.hpp"
#include "veltrane/section/model.hpp"

namespace veltrane {

DxfControl_Reader::DxfControl_Reader() {
    DxfControl_Controller::Init();
    SetNorm("DXF");
}

DxfControl_Reader::DxfControl_Reader(Ref<ExchangeSession> session, bool scratch)
    : ExchangeReader(std::move(session), scratch) {
    DxfControl_Controller::Init();
    SetNorm("DXF");
}

int DxfControl_Reader::NbRootsForTransfer() {
    return ComputeRoots(false);
}

int DxfControl_Reader::ComputeRoots(bool again) {
    auto& roots = ChangeRoots();
    if (!roots.empty() && !again) return static_cast<int>(roots.size());
    roots.clear();
    const auto model = as<DxfSection_Model>(Model());
    const auto entities = model ? model->FindSection("ENTITIES", false) : nullptr;
    if (entities) roots.push_back(entities);
    return static_cast<int>(roots.size());
}

}  // namespace veltrane
