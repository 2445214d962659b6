// The conversions: each writes one file and gives an account of what became of the drawing.
#pragma once

#include "vdxf/drawing.hpp"
#include "veltrane/output/mesh_file.hpp"
#include "veltrane/output/picture.hpp"

#include <nlohmann/json.hpp>

#include <string>

namespace veltrane::tool {

struct ConversionAccount {
    std::string text;
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    bool is_lossy = false;
};

/// All throw Failure when the file could not be written; nothing of it then remains.

/// Writes the drawing for the version of the parameter "write.dxf.version". The account is costly: leave it
/// out when nobody wants it.
ConversionAccount rewrite(Drawing& drawing, const std::string& file, bool with_account);
ConversionAccount draw(Drawing& drawing, const PictureOptions& options, const std::string& file,
                       const Console& console);
ConversionAccount convert_to_mesh(Drawing& drawing, MeshFileOptions options, const std::string& file,
                                  const Console& console);
ConversionAccount dump_shapes(Drawing& drawing, const std::string& file, const Console& console);

}  // namespace veltrane::tool
