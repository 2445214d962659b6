// The start-up of the bridge to ACIS data.
#pragma once

namespace veltrane {

struct DxfSat {
    /// Registers the parameter that turns the writing of ACIS data on and off. Once per process; later calls
    /// do nothing. Safe to call from several threads.
    static void Init();
};

}  // namespace veltrane
