#include "veltrane/sat/dxf_sat.hpp"

#include "veltrane/exchange/parameters.hpp"

#include <mutex>

namespace veltrane {

void DxfSat::Init() {
    static std::once_flag once;
    std::call_once(once, [] {
        StaticParameters::RegisterEnumeration(kCommonFamily, "write.dxf.acis.mode", 0, {"Off", "On"}, "On");
    });
}

}  // namespace veltrane
