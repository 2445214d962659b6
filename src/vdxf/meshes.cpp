// From a drawing to meshes, with the account of its bodies.
#include "vdxf/census.hpp"
#include "vdxf/conversion.hpp"
#include "vdxf/drawing_text.hpp"
#include "vdxf/exit_code.hpp"
#include "vdxf/shape_account.hpp"

#include <fmt/format.h>

#include <limits>
#include <string_view>

namespace veltrane::tool {

namespace {

using Json = nlohmann::ordered_json;

/// What the account says of the record that a body or a gap comes from.
struct Origin {
    std::string type = "shape", handle, layer;
    int line = 0;

    Origin(const Ref<DxfSection_Entity>& record, const DxfSection_Model& model, const DrawingText& names) {
        if (!record) return;
        type = dxf_name(*record);
        handle = handle_of(*record);
        layer = names.name(record->Layer);
        line = model.Line(model.Number(record.get()));
    }
    Json json() const { return {{"type", type}, {"handle", handle}, {"line", line}, {"layer", layer}}; }
    std::string text() const {
        std::string text = handle.empty() ? type : type + " #" + handle;
        return line > 0 ? fmt::format("{}, line {}", text, line) : text;
    }
};

std::string number_of(std::size_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

struct BodyCount {
    std::size_t closed = 0, open = 0;
};

class MeshAccount {
public:
    MeshAccount(const MeshReport& report, MeshFormat format, Drawing& drawing, std::size_t examples)
        : report_(report),
          format_(format),
          model_(drawing.model()),
          names_(drawing.model()),
          examples_(examples) {
        for (const MeshedBody& body : report.bodies) {
            (body.is_watertight ? count_.closed : count_.open) += body.copies;
        }
    }

    std::string text() const { return sums_text() + open_text() + left_out_text() + gaps_text(); }

    Json mesh_json() const {
        return {{"triangles", report_.triangles},
                {"curves", report_.curves},
                {"points", report_.points},
                {"closed_bodies", count_.closed},
                {"open_bodies", count_.open},
                {"curves_left_out", report_.curves_left_out},
                {"points_left_out", report_.points_left_out}};
    }
    Json bodies_json() const {
        Json list = Json::array();
        for (const MeshedBody& body : report_.bodies) {
            Json entry = Origin(body.record, model_, names_).json();
            entry.update(
                {{"triangles", body.triangles}, {"watertight", body.is_watertight}, {"copies", body.copies}});
            list.push_back(std::move(entry));
        }
        return list;
    }
    Json gaps_json() const {
        Json list = Json::array();
        for (const MeshGap& gap : report_.gaps) {
            Json entry = Origin(gap.record, model_, names_).json();
            entry.update({{"reason", gap.reason}, {"count", gap.count}});
            list.push_back(std::move(entry));
        }
        return list;
    }

private:
    std::string sums_text() const {
        std::string text = "Mesh: " + number_of(report_.triangles, "triangle", "triangles");
        if (report_.curves > 0) text += ", " + number_of(report_.curves, "curve", "curves");
        if (report_.points > 0) text += ", " + number_of(report_.points, "point", "points");
        text += '\n';
        if (report_.bodies.empty()) return text;
        return text + fmt::format("Bodies with faces: {} closed (watertight), {} open\n", count_.closed,
                                  count_.open);
    }

    std::string open_text() const {
        std::string text;
        std::size_t open = 0;
        for (const MeshedBody& body : report_.bodies) {
            if (body.is_watertight || ++open > examples_) continue;
            text += fmt::format("  open: {}, {}", Origin(body.record, model_, names_).text(),
                                number_of(body.triangles, "triangle", "triangles"));
            text += body.copies > 1 ? fmt::format(", {} copies\n", body.copies) : "\n";
        }
        return open > examples_ ? text + more(open - examples_) : text;
    }

    std::string left_out_text() const {
        const std::size_t curves = report_.curves_left_out, points = report_.points_left_out;
        if (curves + points == 0) return {};
        return fmt::format("Left out, since {} holds faces only: {}, {}\n", name_of(format_),
                           number_of(curves, "curve", "curves"), number_of(points, "point", "points"));
    }

    std::string gaps_text() const {
        if (report_.gaps.empty()) return {};
        std::string text = "Not in the mesh\n";
        for (std::size_t i = 0; i < report_.gaps.size() && i < examples_; ++i) {
            const MeshGap& gap = report_.gaps[i];
            text += fmt::format("  {}: {}", Origin(gap.record, model_, names_).text(), gap.reason);
            text += gap.count > 1 ? fmt::format(" ({} times)\n", gap.count) : "\n";
        }
        return report_.gaps.size() > examples_ ? text + more(report_.gaps.size() - examples_) : text;
    }

    static std::string more(std::size_t count) { return fmt::format("  and {} more\n", count); }

    const MeshReport& report_;
    MeshFormat format_;
    const DxfSection_Model& model_;
    DrawingText names_;
    std::size_t examples_;
    BodyCount count_;
};

}  // namespace

ConversionAccount convert_to_mesh(Drawing& drawing, MeshFileOptions options, const std::string& file,
                                  const Console& console) {
    drawing.translate(console);
    const Scene scene = make_scene(drawing.model(), *drawing.reader().Process());
    const DrawingText names(drawing.model());
    options.name_text = [&](std::string_view name) { return names.name(name); };
    const MeshReport report = write_mesh(scene, options, file);
    if (!report.is_done()) throw Failure(ExitCode::Failed, report.problem + ".");

    constexpr std::size_t kExamples = 5;
    const bool all = console.detail() == Detail::Verbose;
    const MeshAccount meshes(report, options.format, drawing,
                             all ? std::numeric_limits<std::size_t>::max() : kExamples);
    ConversionAccount account = shape_account(drawing, console);
    tell_omissions(scene, "mesh", account);
    account.text += "\n" + meshes.text();
    for (const std::string& note : report.notes) account.text += "Note: " + note + "\n";
    account.json["mesh"] = meshes.mesh_json();
    account.json["bodies"] = meshes.bodies_json();
    account.json["not_meshed"] = meshes.gaps_json();
    account.json["notes"] = report.notes;
    account.is_lossy = account.is_lossy || report.is_lossy();
    return account;
}

}  // namespace veltrane::tool
