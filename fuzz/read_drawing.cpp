// Any bytes as a drawing: read, turned into shapes and written. Messages are fine; a crash, a hang, a
// sanitizer's finding or memory without bound is a fault.
#include "veltrane/control/actor_read.hpp"
#include "veltrane/control/controller.hpp"
#include "veltrane/exchange/read_process.hpp"
#include "veltrane/file/file_reader.hpp"
#include "veltrane/file/file_writer.hpp"
#include "veltrane/file/structure.hpp"
#include "veltrane/section/model.hpp"

#include <cstdint>
#include <exception>
#include <sstream>
#include <string>

namespace {

using namespace veltrane;

Ref<DxfSection_Model> read(const std::string& bytes) {
    auto model = make<DxfSection_Model>();
    std::istringstream stream(bytes);
    DxfFile_FileReader reader(model);
    reader.Next(stream);
    model->SetDxfFile(DxfFile_RWDxfFile::Read(stream, reader));
    model->AssignHandles();
    return model;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    DxfControl_Controller::Init();
    const Ref<DxfSection_Model> model = read(std::string(reinterpret_cast<const char*>(data), size));
    if (const auto entities = model->FindSection("ENTITIES", false)) {
        const auto process = make<ReadProcess>();
        process->SetModel(model);
        try {
            DxfControl_ActorRead().Transfer(entities, process, Progress());
        } catch (const std::exception&) {
            // An actor may throw; the framework's reader makes a fail of it.
        }
    }
    std::ostringstream written;
    DxfFile_FileWriter writer(model);
    DxfFile_RWDxfFile::Write(written, writer, *model->DxfFile());
    return 0;
}
