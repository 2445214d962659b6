// The start-up of translation.
#pragma once

namespace veltrane::DxfData {

/// Registers the translators of all record types. Once per process; later calls do nothing. Safe to call from
/// several threads.
void Init();

}  // namespace veltrane::DxfData
