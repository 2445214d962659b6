// Any bytes as a drawing: read and turned into shapes. Messages are fine; a crash, a hang, a sanitizer's finding
// or memory without bound is a fault.
#include "drawing.hpp"
#include "veltrane/control/actor_read.hpp"
#include "veltrane/control/controller.hpp"
#include "veltrane/exchange/read_process.hpp"

#include <exception>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veltrane;
    DxfControl_Controller::Init();
    const auto model = fuzz::read(data, size);
    const auto entities = model->FindSection("ENTITIES", false);
    if (!entities) return 0;
    const auto process = make<ReadProcess>();
    process->SetModel(model);
    try {
        DxfControl_ActorRead().Transfer(entities, process, Progress());
    } catch (const std::exception&) {
        // An actor may throw; the framework's reader makes a fail of it.
    }
    return 0;
}
