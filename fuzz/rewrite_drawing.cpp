// Any bytes as a drawing: read, written and read again. Messages are fine; a crash, a hang, a sanitizer's finding
// or memory without bound is a fault, and so is a record that is lost on the way.
#include "drawing.hpp"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veltrane;
    DxfFile::Init();
    const auto model = fuzz::read(data, size);
    const std::string text = fuzz::written(model);
    const auto again = fuzz::read(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    if (length(again->DxfFile()->Sections) < length(model->DxfFile()->Sections)) std::abort();
    return 0;
}
