#include "veltrane/control/actor_read.hpp"

#include "veltrane/data/drawing_unit.hpp"
#include "veltrane/data/init.hpp"
#include "veltrane/data/translate_object.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/kernel/algo/build.hpp"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <vector>

namespace veltrane {
namespace {

constexpr const char* kScope = "Sub Object";

/// The integer that makes up the text, white space around it set aside; nothing for any other text.
std::optional<std::int32_t> integer_in(std::string_view text) {
    constexpr std::string_view kSpaces = " \t\r\n\v\f";
    const std::size_t first = text.find_first_not_of(kSpaces);
    if (first == std::string_view::npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(kSpaces) - first + 1);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

bool is_ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

double scale_of(std::int32_t insunits) {
    if (const auto scale = DxfData::millimetres_per_unit(insunits)) return *scale;
    default_message_channel()->Send("DxfControl_ActorRead : initInsunitsScale : Incorrect Unit ID",
                                    Gravity::Warning);
    return 1.0;
}

kernel::Shape translate(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                        const Progress& progress) {
    const auto translator = DxfData_TranslateObject::FindTool(record->DynamicType(), true);
    return translator ? translator->MakeShape(context, record, progress) : kernel::Shape();
}

}  // namespace

bool DxfControl_ActorRead::Recognize(const Ref<Transient>& start) const {
    if (!start) return false;
    if (start->is_kind(DxfSection_Section::type())) return true;
    DxfData::Init();
    return bool(DxfData_TranslateObject::FindTool(start->DynamicType(), true));
}

Ref<TransferBinder> DxfControl_ActorRead::Transfer(const Ref<Transient>& start,
                                                   const Ref<ReadProcess>& process,
                                                   const Progress& progress) {
    const auto record = as<DxfSection_Object>(start);
    const auto model = process ? as<DxfSection_Model>(process->Model()) : nullptr;
    if (!record || !model) return nullptr;
    DxfData::Init();
    const auto context = make<DxfData_TransferContext>(process);
    initCodePage(*context, *model);
    initDXFVersion(*context, *model);
    initInsunitsScale(*context, *model);

    kernel::Shape shape;
    if (const auto section = as<DxfSection_Section>(record)) {
        shape = transfer_section(*context, section, progress);
    } else {
        ProgressScope scope(progress, kScope, 1);
        shape = translate(*context, record, scope.Next());
    }
    return shape.is_null() ? nullptr : make<ShapeBinder>(shape);
}

kernel::Shape DxfControl_ActorRead::transfer_section(DxfData_TransferContext& context,
                                                     const Ref<DxfSection_Section>& section,
                                                     const Progress& progress) {
    const auto records = section->GetSubObjects();
    const int count = length(records);
    if (count == 0) return {};
    ProgressScope scope(progress, kScope, count);
    std::vector<kernel::Shape> shapes;
    for (const Ref<DxfSection_Object>& record : *records) {
        if (scope.UserBreak()) return {};
        const Progress step = scope.Next();
        kernel::Shape shape = record ? translate(context, record, step) : kernel::Shape();
        if (!shape.is_null()) shapes.push_back(std::move(shape));
    }
    if (shapes.empty()) return {};
    if (count == 1) return shapes.front();
    const kernel::Shape compound = kernel::make_compound(std::move(shapes));
    context.SetTransferResult(section, compound);
    return compound;
}

void DxfControl_ActorRead::initCodePage(DxfData_TransferContext& context, DxfSection_Model& model) {
    const Text name = model.GetVariableString("$DWGCODEPAGE");
    if (name.is_null()) return;
    CodePage page{};
    if (!DxfData::IndicateCodePage(name, page)) {
        context.AddWarning(
            model.FindVariable("$DWGCODEPAGE", false),
            Message::own("Unsupported code page specified by variable $DWGCODEPAGE: " + name.str()));
        return;
    }
    context.SetCodePage(page);
    if (is_east_asian(page)) context.SetFontFamily("cjk");
}

void DxfControl_ActorRead::initDXFVersion(DxfData_TransferContext& context, const DxfSection_Model& model) {
    const Text name = model.GetVariableString("$ACADVER");
    if (name.view().size() < 3 || !is_ascii(name)) return;
    if (const auto version = integer_in(name.view().substr(2))) context.SetDxfVersion(*version);
}

void DxfControl_ActorRead::initInsunitsScale(DxfData_TransferContext& context, DxfSection_Model& model) {
    if (StaticParameters::IntegerValue("read.dxf.insunits.scale") > 0) {
        const auto unit = integer_in(model.GetVariableString("$INSUNITS"));
        model.SetUnitScale(unit ? scale_of(*unit) : 1.0);
    }
    context.SetUnitScale(model.UnitScale());
}

}  // namespace veltrane
