#include "veltrane/exchange/share_tool.hpp"

#include "veltrane/exchange/general_library.hpp"

namespace veltrane {

EntityIterator ShareTool::Shareds(const Transient* record) const {
    EntityIterator shared;
    if (model_ && record) GeneralLibrary::ForModel(model_.get()).FillShared(record, shared);
    return shared;
}

}  // namespace veltrane
