// Any bytes as a drawing. Messages are fine; a crash, a hang, a sanitizer's finding or memory without bound is a
// fault.
#include "drawing.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    veltrane::DxfFile::Init();
    veltrane::fuzz::read(data, size);
    return 0;
}
