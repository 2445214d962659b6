// ACIS data carried by a drawing.
#pragma once

#include "veltrane/base/ref.hpp"

#include <iosfwd>
#include <string>

namespace veltrane::acis {

/// Holds the SAT text, or the binary ACIS data, of one body record, byte for byte.
class SatModel : public Typed<SatModel, Transient> {
public:
    static constexpr const char* kTypeName = "SatModel";

    /// Takes everything that the stream still gives.
    void read(std::istream& in);
    void write(std::ostream& out) const;
    const std::string& text() const { return text_; }

private:
    std::string text_;
};

}  // namespace veltrane::acis
