// What the targets share: any bytes as a drawing, and a drawing as bytes.
#pragma once

#include "veltrane/file/dxf_file.hpp"
#include "veltrane/file/file_reader.hpp"
#include "veltrane/file/file_writer.hpp"
#include "veltrane/file/structure.hpp"
#include "veltrane/section/model.hpp"

#include <cstdint>
#include <sstream>
#include <string>

namespace veltrane::fuzz {

inline Ref<DxfSection_Model> read(const std::uint8_t* bytes, std::size_t size) {
    auto model = make<DxfSection_Model>();
    std::istringstream stream(std::string(reinterpret_cast<const char*>(bytes), size));
    constexpr std::size_t kSmallBlock = 4096;  // for speed, and to meet the ends of blocks
    DxfFile_FileReader reader(model, kSmallBlock);
    reader.FillAbsent(true);
    reader.Next(stream);
    model->SetDxfFile(DxfFile_RWDxfFile::Read(stream, reader));
    model->AssignHandles();
    return model;
}

inline std::string written(const Ref<DxfSection_Model>& model) {
    std::ostringstream stream;
    DxfFile_FileWriter writer(model);
    writer.SetPortable(true);
    DxfFile_RWDxfFile::Write(stream, writer, *model->DxfFile());
    return stream.str();
}

}  // namespace veltrane::fuzz
