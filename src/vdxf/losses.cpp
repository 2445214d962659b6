#include "vdxf/losses.hpp"

#include "vdxf/message_summary.hpp"

#include <algorithm>

namespace veltrane::tool {

std::vector<Loss> losses_of_rewriting(const DxfSection_Model& model) {
    std::vector<Loss> losses;
    for (const MessageKind& kind : summarize_reading(model).kinds) {
        losses.push_back(
            {(kind.type.empty() ? "" : kind.type + ": ") + plain(kind.text), kind.count, kind.first_line});
    }
    return losses;
}

}  // namespace veltrane::tool
