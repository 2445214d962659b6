#include "veltrane/control/writer.hpp"

#include "veltrane/control/controller.hpp"
#include "veltrane/section/model.hpp"

namespace veltrane {

DxfControl_Writer::DxfControl_Writer() : ExchangeWriter("DXF") {
    DxfControl_Controller::Init();
    SetNorm("DXF");
}

DxfControl_Writer::DxfControl_Writer(Ref<ExchangeSession> session, bool scratch)
    : ExchangeWriter(std::move(session), scratch) {
    DxfControl_Controller::Init();
    SetNorm("DXF");
    if (!as<DxfSection_Model>(Session()->Model())) Session()->NewModel();
}

}  // namespace veltrane
