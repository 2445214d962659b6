// The start-up of the norm: record types, protocol and parameters.
#pragma once

#include "veltrane/file/protocol.hpp"

namespace veltrane {

struct DxfFile {
    /// Registers every record type, the protocol with its general module, and the named parameters. Once per
    /// process; later calls do nothing. Safe to call from several threads.
    static void Init();
    /// The protocol that Init made; null before.
    static const Ref<DxfFile_Protocol>& Protocol();
};

}  // namespace veltrane
