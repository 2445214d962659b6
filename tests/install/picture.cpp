// Draws a picture of a drawing and writes a mesh of it.
#include <veltrane/control/reader.hpp>
#include <veltrane/output/mesh_file.hpp>
#include <veltrane/output/picture.hpp>
#include <veltrane/section/model.hpp>

int main(int, char** words) {
    veltrane::DxfControl_Reader reader;
    if (reader.ReadFile(words[1]) != veltrane::ExchangeStatus::Done) return 1;
    reader.TransferRoots();
    const auto drawing = veltrane::as<veltrane::DxfSection_Model>(reader.Model());
    const veltrane::Scene scene = veltrane::make_scene(*drawing, *reader.Process());
    if (!veltrane::write_picture(scene, {}, words[2]).is_done()) return 1;
    return veltrane::write_mesh(scene, {}, words[3]).is_done() ? 0 : 1;
}
