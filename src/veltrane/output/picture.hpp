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
/// edges of the page. Points are dots. Curves deviate by less than 1:200000 of the longer side.
///
/// Faces hide what lies behind them, unless they are seen edge-on; those that cannot be filled are shown by
/// their edges, with a note. Hatches, traces and text are filled with their colour. All other faces are taken
/// for the skins of bodies: tinted, shaded, and with edges in a colour that stands out. Where all faces are
/// plane and parallel they are filled exactly, from the lowest to the uppermost, and what lies on one level
/// comes in the drawing's order. In other scenes the fills are an image of 3000 pixels, in a PNG of twice its
/// pixels up to 4096, beneath the lines; lines are cut to what is seen of them within a pixel of that image,
/// and what lies less than two pixels or so behind a face counts as lying on it. Curved faces have a line
/// where they turn away.
///
/// Time is linear in the size of the scene. It and memory are bounded for any scene; notes tell when a
/// picture is coarser for it or incomplete.
PictureReport write_picture(const Scene& scene, const PictureOptions& options, const std::string& file);

}  // namespace veltrane
