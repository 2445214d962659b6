#include "vdxf/losses.hpp"

#include "vdxf/message_summary.hpp"

#include <algorithm>

namespace veltrane::tool {

namespace {

bool has_extended_data(const Transient& record) {
    const auto* handled = as<const DxfSection_HandledObject>(&record);
    return handled && (length(handled->XAppData) > 0 || !handled->XDataName.is_null());
}

bool has_stored_data(const Transient& record) {
    const auto* stored = as<const DxfSection_AcDsRecord>(&record);
    return stored && (length(stored->Names) > 0 || stored->Data || stored->EntityHandle != 0);
}

/// Counts records, and remembers the first.
void count(Loss& loss, const DxfSection_Model& model, const Transient& record) {
    if (loss.count++ == 0) loss.first_line = model.Line(model.Number(&record));
}

}  // namespace

std::vector<Loss> losses_of_rewriting(const DxfSection_Model& model) {
    std::vector<Loss> losses;
    for (const MessageKind& kind : summarize_reading(model).kinds) {
        losses.push_back(
            {(kind.type.empty() ? "" : kind.type + ": ") + plain(kind.text), kind.count, kind.first_line});
    }
    Loss extended{"records lose their extended data"};
    Loss stored{"ACDSRECORD records lose their contents"};
    for (const Ref<Transient>& record : model.records()) {
        if (has_extended_data(*record)) count(extended, model, *record);
        if (has_stored_data(*record)) count(stored, model, *record);
    }
    if (extended.count > 0) losses.push_back(extended);
    if (stored.count > 0) losses.push_back(stored);
    return losses;
}

}  // namespace veltrane::tool
