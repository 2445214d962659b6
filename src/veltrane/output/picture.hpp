// Pictures of scenes: SVG, PDF and PNG.
#pragma once

#include "veltrane/output/colour.hpp"
#include "veltrane/output/page.hpp"
#include "veltrane/output/scene.hpp"
#include "veltrane/output/view.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veltrane {

/// The format that a file's name asks for by its extension, in either case.
std::optional<PictureFormat> picture_format_of(std::string_view file);

struct PictureOptions {
    PictureFormat format = PictureFormat::Svg;
    View view;
    Ground ground = Ground::White;
    int pixels = 1200;  ///< longer side of a PNG, margin included; 16 to 16384
};

struct PictureReport {
    std::string problem;             ///< why there is no picture; empty when there is one
    std::vector<std::string> notes;  ///< what a user should know about the picture: sentences

    bool is_done() const { return problem.empty(); }
};

/// Draws a scene into a file that appears whole or not at all. Throws nothing: what goes wrong is told in the
/// report.
///
/// SVG and PDF are of true size, a millimetre of the model being one of the page, up to pages of 100 m and
/// 200 in; larger drawings are reduced by a round factor, with a note. Lines without a weight have a width
/// that is the same for the whole picture. Everything bounded is shown; lines that go on for ever run to the
/// edges of the page. Faces are shown by their edges, points as dots. Curves deviate by less than 1:200000
/// of the longer side. Time is linear in the size of the scene.
PictureReport write_picture(const Scene& scene, const PictureOptions& options, const std::string& file);

}  // namespace veltrane
