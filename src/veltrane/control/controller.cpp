#include "veltrane/control/controller.hpp"

#include "veltrane/control/actor_read.hpp"
#include "veltrane/control/actor_write.hpp"
#include "veltrane/data/init.hpp"
#include "veltrane/exchange/date_text.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/dxf_file.hpp"
#include "veltrane/file/work_library.hpp"
#include "veltrane/section/model.hpp"

#include <mutex>
#include <string>

namespace veltrane {
namespace {

constexpr const char* kNorm = "DXF";
constexpr const char* kRule = "********************************************";
constexpr const char* kProducer = "*** DXF file produced by Veltrane 7.6";

void register_scale_parameter() {
    constexpr const char* kName = "read.dxf.insunits.scale";
    if (!StaticParameters::Register("dxf", kName, 'e', "")) return;
    for (const char* part : {"enum 0", "eval Off", "eval On"}) {
        StaticParameters::Register("dxf", kName, '&', part);
    }
    StaticParameters::SetInteger(kName, 1);
}

}  // namespace

DxfControl_Controller::DxfControl_Controller() : Typed(kNorm, kNorm) {
    DxfFile::Init();
    SetProtocol(DxfFile::Protocol());
    SetWorkLibrary(make<DxfFile_WorkLibrary>());
    SetActorRead(make<DxfControl_ActorRead>());
    SetActorWrite(make<DxfControl_ActorWrite>());
    static std::once_flag once;
    std::call_once(once, register_scale_parameter);
}

void DxfControl_Controller::Init() {
    static std::once_flag once;
    std::call_once(once, [] {
        const auto controller = make<DxfControl_Controller>();
        controller->Record(controller->LongName());
        controller->Record(controller->ShortName());
        DxfData::Init();
    });
}

Ref<ExchangeModel> DxfControl_Controller::NewModel() const {
    auto model = make<DxfSection_Model>();
    auto& comment = model->DxfFile()->Comment;
    append(comment, kRule);
    append(comment, kProducer);
    append(comment, "*** Date: " + current_date_text("%4.4d-%2.2d-%2.2dT%2.2d:%2.2d:%2.2d"));
    append(comment, kRule);
    return model;
}

}  // namespace veltrane
