#include "veltrane/control/actor_write.hpp"

namespace veltrane {

Ref<TransferBinder> DxfControl_ActorWrite::Transfer(const Ref<Transient>& start,
                                                    const Ref<WriteProcess>& process,
                                                    const Progress& /*progress*/) {
    const auto key = as<ShapeKey>(start);
    if (key && process) process->AddFail(*key, "The export of shapes is not available yet");
    return nullptr;
}

}  // namespace veltrane
