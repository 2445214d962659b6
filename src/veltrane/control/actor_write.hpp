// Writes shapes into a drawing.
#pragma once

#include "veltrane/exchange/actor.hpp"

namespace veltrane {

/// Shapes cannot be exported yet: every one is refused with a fail on its key, so that a caller can tell this
/// from a drawing that was written.
class DxfControl_ActorWrite : public Typed<DxfControl_ActorWrite, WriteActor> {
public:
    static constexpr const char* kTypeName = "DxfControl_ActorWrite";

    Ref<TransferBinder> Transfer(const Ref<Transient>& start, const Ref<WriteProcess>& process,
                                 const Progress& progress) override;
};

}  // namespace veltrane
