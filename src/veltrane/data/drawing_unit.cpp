#include "veltrane/data/drawing_unit.hpp"

#include <array>

namespace veltrane::DxfData {

std::optional<double> millimetres_per_unit(std::int32_t insunits) {
    static constexpr std::array<double, 21> kMillimetres = {
        1.0,           // none
        25.4,          // inch
        304.8,         // foot
        1609344,       // mile
        1.0,           // millimetre
        10,            // centimetre
        1000,          // metre
        1000000,       // kilometre
        2.54e-5,       // microinch
        0.0254,        // mil
        914.4,         // yard
        1e-7,          // angstrom
        1e-6,          // nanometre
        0.001,         // micron
        100,           // decimetre
        10000,         // decametre
        100000,        // hectometre
        1e12,          // gigametre
        1.49598e14,    // astronomical unit
        9.4605284e18,  // light year
        3.08568025e19  // parsec
    };
    if (insunits < 0 || insunits >= static_cast<std::int32_t>(kMillimetres.size())) return std::nullopt;
    return kMillimetres[static_cast<std::size_t>(insunits)];
}

}  // namespace veltrane::DxfData
