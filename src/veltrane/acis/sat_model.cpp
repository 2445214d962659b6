#include "veltrane/acis/sat_model.hpp"

#include <istream>
#include <iterator>
#include <ostream>

namespace veltrane::acis {

void SatModel::read(std::istream& in) {
    text_.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void SatModel::write(std::ostream& out) const {
    out.write(text_.data(), static_cast<std::streamsize>(text_.size()));
}

}  // namespace veltrane::acis
