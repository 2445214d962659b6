// Reads a DXF file into shapes.
#pragma once

#include "veltrane/exchange/reader.hpp"

namespace veltrane {

/// The one root of a drawing is its ENTITIES section.
class DxfControl_Reader : public ExchangeReader {
public:
    DxfControl_Reader();
    /// On a session; `scratch` makes the session forget its model.
    explicit DxfControl_Reader(Ref<ExchangeSession> session, bool scratch = true);

    /// 1 when the drawing has an ENTITIES section, otherwise 0. The answer is kept until the next ReadFile,
    /// or ComputeRoots(true).
    int NbRootsForTransfer() override;
    /// The same; with `again` the drawing is looked at anew.
    int ComputeRoots(bool again);
};

}  // namespace veltrane
