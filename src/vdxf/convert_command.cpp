#include "vdxf/convert_command.hpp"

#include "vdxf/conversion.hpp"
#include "vdxf/drawing_text.hpp"
#include "vdxf/message_summary.hpp"
#include "vdxf/suggest.hpp"
#include "veltrane/base/letter_case.hpp"
#include "veltrane/exchange/parameters.hpp"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <filesystem>
#include <memory>
#include <numbers>
#include <optional>

namespace veltrane::tool {

namespace {

constexpr const char* kVersionParameter = "write.dxf.version";
constexpr const char* kMarkersParameter = "write.dxf.r12.markers";
constexpr const char* kHatchesParameter = "read.dxf.hatchentities";  // pictures show hatches of all kinds
constexpr double kLeastAngle = 0.1, kGreatestAngle = 57;             // degrees

/// What is written, by the ending of its name.
struct Target {
    const char* name;
    enum Kind { Dxf, Picture, Mesh, Text } kind;
    PictureFormat picture = {};
    MeshFormat mesh = {};
};

constexpr Target kTargets[] = {{"dxf", Target::Dxf},
                               {"svg", Target::Picture, PictureFormat::Svg},
                               {"pdf", Target::Picture, PictureFormat::Pdf},
                               {"png", Target::Picture, PictureFormat::Png},
                               {"stl", Target::Mesh, {}, MeshFormat::Stl},
                               {"obj", Target::Mesh, {}, MeshFormat::Obj},
                               {"ply", Target::Mesh, {}, MeshFormat::Ply},
                               {"gltf", Target::Mesh, {}, MeshFormat::Gltf},
                               {"glb", Target::Mesh, {}, MeshFormat::Glb},
                               {"3mf", Target::Mesh, {}, MeshFormat::ThreeMf},
                               {"txt", Target::Text}};

struct ConvertOptions {
    CommonOptions common;
    std::string input;
    std::string output;
    std::string target;  ///< empty: the output's extension tells
    std::string dxf_version;
    std::string view = "plan";
    std::string ground = "white";
    int pixels = PictureOptions().pixels;
    std::string deflection = "0.1%";
    double angle = 20;  ///< degrees
    bool strict = false;
};

const std::vector<std::string>& views() {
    static const std::vector<std::string> names = {"plan", "bottom", "front", "back", "left", "right", "iso"};
    return names;
}

std::vector<std::string> target_names() {
    std::vector<std::string> names;
    for (const Target& target : kTargets) names.emplace_back(target.name);
    return names;
}

const Target* find_target(std::string_view name) {
    for (const Target& target : kTargets) {
        if (name == target.name) return &target;
    }
    return nullptr;
}

const Target& target_of(const ConvertOptions& options) {
    if (!options.target.empty()) return *find_target(options.target);  // checked with the arguments
    std::string extension = std::filesystem::path(options.output).extension().string();
    if (!extension.empty()) extension.erase(0, 1);
    extension = lower_case(extension);
    if (const Target* target = find_target(extension)) return *target;
    const std::vector<std::string> known = target_names();
    throw Failure(ExitCode::WrongUsage,
                  fmt::format("{} has {}. What is written is told by the extension, one of {}, or by --to.{}",
                              options.output,
                              extension.empty() ? "no extension" : "the unknown extension ." + extension,
                              list_of(known), extension.empty() ? "" : did_you_mean(extension, known)));
}

// Views

/// "1,-1,0.5": three finite numbers, not all zero.
std::optional<kernel::Vector> direction_in(std::string_view text) {
    kernel::Vector direction(0, 0, 0);
    const char* at = text.data();
    const char* const end = at + text.size();
    for (int axis = 0; axis < 3; ++axis) {
        if (axis > 0 && (at == end || *at++ != ',')) return std::nullopt;
        const auto result = std::from_chars(at, end, direction[axis]);
        if (result.ec != std::errc() || !std::isfinite(direction[axis])) return std::nullopt;
        at = result.ptr;
    }
    if (at != end || direction.norm() == 0 || !std::isfinite(direction.norm())) return std::nullopt;
    return direction;
}

std::string check_view(const std::string& text) {
    if (standard_view(text) || direction_in(text)) return {};
    return fmt::format("\"{}\" is neither one of {} nor a direction to the eye like 1,-1,0.5.{}", text,
                       list_of(views()), did_you_mean(text, views()));
}

View view_of(const std::string& text) {
    if (const auto known = standard_view(text)) return View(*known);
    return View(*direction_in(text));
}

PictureOptions picture_options(const ConvertOptions& options, const Target& target) {
    PictureOptions picture;
    picture.format = target.picture;
    picture.view = view_of(options.view);
    picture.ground = options.ground == "black" ? Ground::Black : Ground::White;
    picture.pixels = options.pixels;
    return picture;
}

// Meshes

struct Deflection {
    double value = 0;  ///< millimetres, or a share
    bool is_relative = false;
};

/// "0.1": millimetres; "0.1%": a share of the size of each body.
std::optional<Deflection> deflection_in(std::string_view text) {
    Deflection deflection;
    deflection.is_relative = text.ends_with('%');
    if (deflection.is_relative) text.remove_suffix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), deflection.value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    const double least = 1e-6, most = deflection.is_relative ? 100 : 1e6;
    if (!(deflection.value >= least && deflection.value <= most)) return std::nullopt;
    if (deflection.is_relative) deflection.value /= 100;
    return deflection;
}

std::string check_deflection(const std::string& text) {
    if (deflection_in(text)) return {};
    return fmt::format(
        "\"{}\" is neither a length in millimetres from 0.000001 to 1000000, like 0.1, nor a share of the "
        "size "
        "of each body up to 100%, like 0.1%",
        text);
}

std::string check_angle(const std::string& text) {
    double angle = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), angle);
    const bool is_whole = error == std::errc() && end == text.data() + text.size();
    if (is_whole && angle >= kLeastAngle && angle <= kGreatestAngle) return {};
    return fmt::format("\"{}\" is not an angle in degrees from {} to {}", text, kLeastAngle, kGreatestAngle);
}

MeshFileOptions mesh_options(const ConvertOptions& options, const Target& target) {
    const Deflection deflection = *deflection_in(options.deflection);
    MeshFileOptions mesh;
    mesh.format = target.mesh;
    mesh.deflection = deflection.value;
    mesh.is_relative = deflection.is_relative;
    mesh.angle = options.angle * std::numbers::pi / 180;
    return mesh;
}

/// Options that would have no effect are mistakes that the user wants to know of.
void check_options(const CLI::App& parser, const Target& target) {
    const auto refuse = [&](const char* option, const char* use) {
        if (parser.count(option) > 0) {
            throw Failure(ExitCode::WrongUsage, fmt::format("{} is for {}.", option, use));
        }
    };
    constexpr const char* kPictures = "pictures (svg, pdf, png)";
    constexpr const char* kMeshes = "meshes (stl, obj, ply, gltf, glb, 3mf)";
    const bool is_picture = target.kind == Target::Picture;
    const bool is_png = is_picture && target.picture == PictureFormat::Png;
    if (target.kind != Target::Dxf) refuse("--dxf-version", "DXF files");
    if (!is_picture) refuse("--view", kPictures);
    if (!is_picture) refuse("--ground", kPictures);
    if (!is_png) refuse("--size", "png pictures; svg and pdf are of true size");
    if (target.kind != Target::Mesh) refuse("--deflection", kMeshes);
    if (target.kind != Target::Mesh) refuse("--angle", kMeshes);
}

/// A drawing keeps its version, and what is written for R12 or before has only what readers of these know.
void set_version(const ConvertOptions& options) {
    if (!options.common.sets(kMarkersParameter)) StaticParameters::SetText(kMarkersParameter, "Off");
    if (!options.dxf_version.empty()) {
        StaticParameters::SetText(kVersionParameter, options.dxf_version);
    } else if (!options.common.sets(kVersionParameter)) {
        StaticParameters::SetText(kVersionParameter, "Undef");
    }
}

ConversionAccount convert(const ConvertOptions& options, const Target& target, Drawing& drawing,
                          const Console& console) {
    switch (target.kind) {
        case Target::Dxf:
            set_version(options);
            return rewrite(drawing, options.output,
                           options.strict || options.common.json || !options.common.quiet);
        case Target::Text:
            return dump_shapes(drawing, options.output, console);
        case Target::Mesh:
            return convert_to_mesh(drawing, mesh_options(options, target), options.output, console);
        default:
            if (!options.common.sets(kHatchesParameter)) StaticParameters::SetText(kHatchesParameter, "On");
            return draw(drawing, picture_options(options, target), options.output, console);
    }
}

void tell_messages(Drawing& drawing, const Console& console) {
    if (console.detail() != Detail::Verbose) return;
    const DrawingText text(drawing.model());
    const auto tell = [&](const PlacedMessage& message) { console.remark(line_of(message, text)); };
    visit_messages(drawing.model(), tell);
    visit_messages(drawing.model(), *drawing.reader().Process(), tell);
}

ExitCode run_convert(const ConvertOptions& options, const CLI::App& parser, Console& console) {
    using Json = nlohmann::ordered_json;
    const Target& target = target_of(options);
    check_options(parser, target);
    Drawing drawing(options.input, console);
    ConversionAccount account = convert(options, target, drawing, console);
    tell_messages(drawing, console);

    if (options.common.json) {
        Json json = {{"input", options.input},
                     {"output", options.output},
                     {"format", target.name},
                     {"lossless", !account.is_lossy}};
        json.update(account.json);
        console.out() << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    } else {
        console.note(options.input + " -> " + options.output + "\n" + account.text);
    }
    if (!options.strict || !account.is_lossy) return ExitCode::Done;
    complain("Something was lost (--strict).");
    return ExitCode::Lost;
}

std::vector<std::string> version_names() {
    for (const ParameterInfo& info : StaticParameters::List()) {
        if (info.name == kVersionParameter) return info.value_names;
    }
    return {};
}

void add_options(CLI::App& parser, ConvertOptions& options) {
    parser.add_option("IN", options.input, "The drawing, an ASCII DXF file")->required()->type_name("");
    parser
        .add_option(
            "OUT", options.output,
            "What to write: a drawing .dxf, a picture .svg .pdf .png, a mesh .stl .obj .ply .gltf .glb .3mf, "
            "or .txt, a dump of the shapes")
        ->required()
        ->type_name("");
    parser.add_option("--to", options.target, "What to write when the extension of OUT does not tell")
        ->check(one_of(target_names()))
        ->type_name("FORMAT");
    parser
        .add_option("--dxf-version", options.dxf_version,
                    "DXF: another version than the drawing's own, R12 to R2010; sets write.dxf.version")
        ->check(one_of(version_names()))
        ->type_name("VERSION");
    parser
        .add_option("--view", options.view,
                    "Picture: " + list_of(views()) + ", or a direction to the eye as X,Y,Z")
        ->check(CLI::Validator([](std::string& text) { return check_view(text); }, ""))
        ->type_name("VIEW")
        ->capture_default_str();
    parser.add_option("--ground", options.ground, "Picture: white or black")
        ->check(one_of({"white", "black"}))
        ->type_name("COLOUR")
        ->capture_default_str();
    parser
        .add_option("--size", options.pixels,
                    fmt::format("PNG: pixels of the longer side, {} to {}", kSmallestPixels, kLargestPixels))
        ->check(integer_in(kSmallestPixels, kLargestPixels))
        ->type_name("PIXELS")
        ->capture_default_str();
    parser
        .add_option(
            "--deflection", options.deflection,
            "Mesh: greatest distance from the true shape, in millimetres (0.1) or as a share of the size of "
            "each body (0.1%)")
        ->check(CLI::Validator([](std::string& text) { return check_deflection(text); }, ""))
        ->type_name("LENGTH")
        ->capture_default_str();
    parser
        .add_option("--angle", options.angle,
                    fmt::format("Mesh: greatest turn over one triangle or segment, {} to {} degrees",
                                kLeastAngle, kGreatestAngle))
        ->check(CLI::Validator([](std::string& text) { return check_angle(text); }, ""))
        ->type_name("DEGREES")
        ->capture_default_str();
    parser.add_flag("--strict", options.strict, "Exit with 4 when anything of the drawing was lost");
}

}  // namespace

Command declare_convert(CLI::App& application) {
    const auto options = std::make_shared<ConvertOptions>();
    CLI::App* parser = application.add_subcommand(
        "convert", "Write a drawing as DXF, as a picture, as a mesh or as a dump of its shapes");
    add_options(*parser, *options);
    add_common_options(*parser, options->common);
    parser->footer(
        "SVG and PDF are of true size; all hatches are drawn, those with a pattern by its lines.\n"
        "Meshes are in millimetres; glTF (.gltf, .glb) is in metres with the "
        "Y\n"
        "axis up. Lines and points are kept in OBJ and glTF only, colours not in STL; OBJ has its colours in "
        "a\n"
        "file beside it that ends in .mtl. OUT appears whole or not at all.\n"
        "What became of the records is told on standard error, or as JSON on standard output.\n\n"
        "Examples:\n"
        "  vdxf convert plan.dxf plan.svg\n"
        "  vdxf convert part.dxf part.png --view iso --ground black --size 2000\n"
        "  vdxf convert part.dxf part.stl --deflection 0.02 --angle 10\n"
        "  vdxf convert new.dxf old.dxf --dxf-version R12 --strict\n"
        "  vdxf convert plan.dxf /dev/stdout --to svg -q | rsvg-convert > plan.png\n"
        "  vdxf convert --json plan.dxf plan.txt | jq '.types'");
    return {parser, [options]() -> const CommonOptions& { return options->common; },
            [options, parser](Console& console) { return run_convert(*options, *parser, console); }};
}

}  // namespace veltrane::tool
