// The norm "DXF".
#pragma once

#include "veltrane/exchange/controller.hpp"

namespace veltrane {

class DxfControl_Controller : public Typed<DxfControl_Controller, ExchangeController> {
public:
    static constexpr const char* kTypeName = "DxfControl_Controller";

    /// Starts the file layer up, if nobody has, and registers "read.dxf.insunits.scale".
    DxfControl_Controller();

    /// Makes the norm known to the framework: its controller, record types, translators and parameters. Once
    /// per process; later calls do nothing. Readers and writers call it. Safe to call from several threads.
    static void Init();

    /// A new empty drawing with four comment lines that name the producer and the date.
    Ref<ExchangeModel> NewModel() const override;
};

}  // namespace veltrane
