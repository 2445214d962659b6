// Writes shapes to a DXF file.
#pragma once

#include "veltrane/exchange/writer.hpp"

namespace veltrane {

class DxfControl_Writer : public ExchangeWriter {
public:
    DxfControl_Writer();
    /// On a session, which comes to hold a drawing: a model of another norm is replaced by a new one.
    /// `scratch` makes the session forget its model first.
    explicit DxfControl_Writer(Ref<ExchangeSession> session, bool scratch = true);
};

}  // namespace veltrane
