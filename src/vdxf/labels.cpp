#include "vdxf/labels.hpp"

#include <array>
#include <utility>

namespace veltrane::tool {

std::string_view release_label(std::string_view version_code) {
    static constexpr std::pair<std::string_view, std::string_view> kReleases[] = {
        {"AC1.2", "R1.2"},   {"AC1.40", "R1.4"},  {"AC1.50", "R2.0"},  {"AC2.10", "R2.10"},
        {"AC1002", "R2.5"},  {"AC1003", "R2.6"},  {"AC1004", "R9"},    {"AC1006", "R10"},
        {"AC1009", "R12"},   {"AC1012", "R13"},   {"AC1014", "R14"},   {"AC1015", "R2000"},
        {"AC1018", "R2004"}, {"AC1021", "R2007"}, {"AC1024", "R2010"}, {"AC1027", "R2013"},
        {"AC1032", "R2018"}};
    for (const auto& [code, label] : kReleases) {
        if (code == version_code) return label;
    }
    return {};
}

std::string_view unit_label(std::int32_t insunits) {
    static constexpr std::array<std::string_view, 21> kUnits = {"no unit",
                                                                "inches",
                                                                "feet",
                                                                "miles",
                                                                "millimetres",
                                                                "centimetres",
                                                                "metres",
                                                                "kilometres",
                                                                "microinches",
                                                                "mils",
                                                                "yards",
                                                                "angstroms",
                                                                "nanometres",
                                                                "microns",
                                                                "decimetres",
                                                                "decametres",
                                                                "hectometres",
                                                                "gigametres",
                                                                "astronomical units",
                                                                "light years",
                                                                "parsecs"};
    if (insunits < 0 || insunits >= static_cast<std::int32_t>(kUnits.size())) return {};
    return kUnits[static_cast<std::size_t>(insunits)];
}

}  // namespace veltrane::tool
