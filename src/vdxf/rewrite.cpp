// From a drawing to a DXF file.
#include "vdxf/census.hpp"
#include "vdxf/conversion.hpp"
#include "vdxf/exit_code.hpp"
#include "vdxf/labels.hpp"
#include "vdxf/version_losses.hpp"
#include "veltrane/control/writer.hpp"

#include <fmt/format.h>

#include <iterator>
#include <utility>

namespace veltrane::tool {

namespace {

using Json = nlohmann::ordered_json;

std::string version_text(const std::string& version) {
    if (version.empty()) return "no version stated";
    const std::string_view label = release_label(version);
    return label.empty() ? version : fmt::format("{}, {}", version, label);
}

std::string types_text(const std::vector<TypeCount>& types) {
    std::string text;
    std::size_t records = 0, carried = 0;
    const std::size_t width = type_width(types);
    for (const TypeCount& type : types) {
        text += fmt::format("  {:<{}} {:>9}{}\n", type.type, width, type.records,
                            type.carried_through ? "  carried through" : "");
        records += type.records;
        carried += type.carried_through ? type.records : 0;
    }
    return text + fmt::format("  {:<{}} {:>9}, {} of them carried through: written as they were read\n",
                              "all", width, records, carried);
}

std::string losses_text(const std::vector<Loss>& losses) {
    if (losses.empty()) return "Nothing was lost\n";
    std::string text = "Not in the file that was written\n";
    for (const Loss& loss : losses) {
        text += fmt::format("{:>9} x {}", loss.count, loss.what);
        if (loss.first_line > 0) text += fmt::format(" (first at line {})", loss.first_line);
        text += '\n';
    }
    return text;
}

Json types_json(const std::vector<TypeCount>& types) {
    Json list = Json::array();
    for (const TypeCount& type : types) {
        list.push_back(
            {{"type", type.type}, {"read", type.records}, {"carried_through", type.carried_through}});
    }
    return list;
}

Json losses_json(const std::vector<Loss>& losses) {
    Json list = Json::array();
    for (const Loss& loss : losses) {
        list.push_back({{"what", loss.what}, {"count", loss.count}, {"first_line", loss.first_line}});
    }
    return list;
}

}  // namespace

ConversionAccount rewrite(Drawing& drawing, const std::string& file, bool with_account) {
    const std::string version_before = drawing.model().GetVariableString("$ACADVER").str();
    DxfControl_Writer writer(drawing.reader().Session(), false);
    if (writer.WriteFile(file) != ExchangeStatus::Done)
        throw Failure(ExitCode::Failed, writer.Problem() + ".");

    ConversionAccount account;
    if (!with_account) return account;
    const std::string version = drawing.model().GetVariableString("$ACADVER").str();
    const std::vector<TypeCount> types = count_types(drawing.model());
    std::vector<Loss> losses = losses_of_rewriting(drawing.model());
    std::vector<Loss> of_version = version_losses(drawing.model());
    std::move(of_version.begin(), of_version.end(), std::back_inserter(losses));

    account.text = "Records written (" + version_text(version) + ")\n" + types_text(types);
    if (version != version_before) {
        account.text += "The drawing was " + version_text(version_before) +
                        ". Records that were carried through are as they were for that version.\n";
    }
    account.text += losses_text(losses);
    account.json["version_read"] = version_before;
    account.json["version_written"] = version;
    account.json["types"] = types_json(types);
    account.json["lost"] = losses_json(losses);
    account.is_lossy = !losses.empty();
    return account;
}

}  // namespace veltrane::tool
