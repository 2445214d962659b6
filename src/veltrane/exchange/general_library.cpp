#include "veltrane/exchange/general_library.hpp"

#include <mutex>
#include <vector>

namespace veltrane {
namespace {

struct Pair {
    Ref<ExchangeProtocol> protocol;
    Ref<ExchangeGeneralModule> module;
};

struct Table {
    std::mutex mutex;
    std::vector<Pair> pairs;
};

Table& table() {
    static Table instance;
    return instance;
}

}  // namespace

void GeneralLibrary::SetGlobal(Ref<ExchangeGeneralModule> module, Ref<ExchangeProtocol> protocol) {
    const std::lock_guard lock(table().mutex);
    for (Pair& pair : table().pairs) {
        if (pair.protocol == protocol) {
            pair.module = std::move(module);
            return;
        }
    }
    table().pairs.push_back({std::move(protocol), std::move(module)});
}

GeneralLibrary::GeneralLibrary(const ExchangeProtocol* protocol) {
    const std::lock_guard lock(table().mutex);
    for (const Pair& pair : table().pairs) {
        if (pair.protocol.get() != protocol) continue;
        protocol_ = pair.protocol;
        module_ = pair.module;
    }
}

GeneralLibrary GeneralLibrary::ForModel(const ExchangeModel* model) {
    GeneralLibrary library;
    const std::lock_guard lock(table().mutex);
    for (const Pair& pair : table().pairs) {
        if (!pair.protocol->IsSuitableModel(model)) continue;
        library.protocol_ = pair.protocol;
        library.module_ = pair.module;
        break;
    }
    return library;
}

void GeneralLibrary::FillShared(const Transient* record, EntityIterator& shared) const {
    if (!module_ || !record) return;
    const int number = protocol_->TypeNumber(record->DynamicType());
    if (number > 0) module_->FillSharedCase(number, record, shared);
}

}  // namespace veltrane
