// From a drawing to pictures and shape dumps.
#include "vdxf/census.hpp"
#include "vdxf/conversion.hpp"
#include "vdxf/exit_code.hpp"
#include "vdxf/shape_account.hpp"
#include "veltrane/exchange/file_stream.hpp"
#include "veltrane/output/shape_text.hpp"

namespace veltrane::tool {

ConversionAccount draw(Drawing& drawing, const PictureOptions& options, const std::string& file,
                       const Console& console) {
    drawing.translate(console);
    const Scene scene = make_scene(drawing.model(), *drawing.reader().Process(), Patterns::Lines);
    const PictureReport report = write_picture(scene, options, file);
    if (!report.is_done()) throw Failure(ExitCode::Failed, report.problem + ".");
    ConversionAccount account = shape_account(drawing, console);
    tell_omissions(scene, "picture", account);
    account.json["notes"] = report.notes;
    for (const std::string& note : report.notes) account.text += "Note: " + note + "\n";
    return account;
}

ConversionAccount dump_shapes(Drawing& drawing, const std::string& file, const Console& console) {
    drawing.translate(console);
    OutputFile out(file);
    write_shape_text(out, drawing.model(), *drawing.reader().Process(), &dxf_name);
    if (!out.Close()) throw Failure(ExitCode::Failed, out.problem() + ".");
    return shape_account(drawing, console);
}

}  // namespace veltrane::tool
