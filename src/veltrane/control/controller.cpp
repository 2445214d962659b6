#include "veltrane/control/controller.hpp"

#include "veltrane/control/actor_read.hpp"
#include "veltrane/control/actor_write.hpp"
#include "veltrane/data/init.hpp"
#include "veltrane/exchange/date_text.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/dxf_file.hpp"
#include "veltrane/file/work_library.hpp"
#include "veltrane/sat/dxf_sat.hpp"
#include "veltrane/section/model.hpp"

#include <mutex>
#include <string>

namespace veltrane {
namespace {

constexpr const char* kNorm = "DXF";
constexpr const char* kRule = "********************************************";
constexpr const char* kProducer = "*** DXF file produced by Veltrane 7.6";

void register_scale_parameter() {
    StaticParameters::RegisterEnumeration("dxf", "read.dxf.insunits.scale", 0, {"Off", "On"}, "On");
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
        DxfSat::Init();
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
