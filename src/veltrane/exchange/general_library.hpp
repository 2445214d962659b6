// Knows which general module speaks for which protocol.
#pragma once

#include "veltrane/exchange/general_module.hpp"
#include "veltrane/exchange/protocol.hpp"

namespace veltrane {

/// One registered pair of protocol and module, or neither. The table of pairs lives for the process.
class GeneralLibrary {
public:
    /// Makes a module known together with its protocol; replaces the protocol's earlier module.
    static void SetGlobal(Ref<ExchangeGeneralModule> module, Ref<ExchangeProtocol> protocol);

    GeneralLibrary() = default;
    /// The pair of a protocol; empty when it was never made known.
    explicit GeneralLibrary(const ExchangeProtocol* protocol);
    /// The first pair whose protocol accepts the model.
    static GeneralLibrary ForModel(const ExchangeModel* model);

    const Ref<ExchangeProtocol>& Protocol() const { return protocol_; }
    const Ref<ExchangeGeneralModule>& Module() const { return module_; }
    /// Adds what a record shares directly; nothing when the pair is empty or does not know the type.
    void FillShared(const Transient* record, EntityIterator& shared) const;

private:
    Ref<ExchangeProtocol> protocol_;
    Ref<ExchangeGeneralModule> module_;
};

}  // namespace veltrane
