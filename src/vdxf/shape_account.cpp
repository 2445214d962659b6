#include "vdxf/shape_account.hpp"

#include "vdxf/census.hpp"
#include "veltrane/data/translate_object.hpp"
#include "veltrane/output/account.hpp"
#include "veltrane/section/handle_text.hpp"

#include <fmt/format.h>

#include <limits>

namespace veltrane::tool {

namespace {

using Json = nlohmann::ordered_json;

Account account_of(Drawing& drawing) {
    AccountQuestions questions;
    questions.name = [](const DxfSection_Object& record) { return dxf_name(record); };
    questions.has_translator = [](const DxfSection_Object& record) {
        return bool(DxfData_TranslateObject::FindTool(record.DynamicType(), true));
    };
    return make_account(drawing.model(), *drawing.reader().Process(), questions);
}

Json types_json(const Account& account) {
    Json list = Json::array();
    for (const TypeAccount& type : account.types) {
        list.push_back({{"type", type.type},
                        {"read", type.read},
                        {"shape", type.shape},
                        {"nothing", type.nothing},
                        {"no_translator", type.no_translator}});
    }
    return list;
}

Json elsewhere_json(const Account& account) {
    Json list = Json::array();
    for (const PlaceAccount& entry : account.elsewhere) {
        list.push_back({{"place", entry.place}, {"type", entry.type}, {"read", entry.read}});
    }
    return list;
}

Json lost_json(const Account& account) {
    Json list = Json::array();
    for (const LostRecord& record : account.lost) {
        list.push_back({{"type", account.types[record.type].type},
                        {"handle", record.handle > 0 ? DxfSection::HexToString(record.handle).str() : ""},
                        {"line", record.line},
                        {"reason", account.reasons[record.reason]}});
    }
    return list;
}

Json messages_json(const Account& account) {
    Json list = Json::array();
    for (const MessageAccount& message : account.messages) {
        const bool is_reading = message.stage == MessageAccount::Stage::Reading;
        list.push_back({{"stage", is_reading ? "reading" : "transfer"},
                        {"gravity", message.is_fail ? "fail" : "warning"},
                        {"kind", message.kind},
                        {"count", message.count},
                        {"example", message.example},
                        {"record", message.record},
                        {"line", message.line}});
    }
    return list;
}

}  // namespace

ConversionAccount shape_account(Drawing& drawing, const Console& console) {
    const Account account = account_of(drawing);
    constexpr std::size_t kExamples = 5;
    const bool all = console.detail() == Detail::Verbose;
    ConversionAccount result;
    result.text = account_text(account, all ? std::numeric_limits<std::size_t>::max() : kExamples);
    result.json = {{"types", types_json(account)},
                   {"elsewhere", elsewhere_json(account)},
                   {"lost", lost_json(account)},
                   {"messages", messages_json(account)}};
    result.is_lossy = account.has_losses();
    return result;
}

void tell_omissions(const Scene& scene, std::string_view what, ConversionAccount& account) {
    Json omitted = Json::object();
    std::string text;
    for (std::size_t i = 0; i < kOmissionCount; ++i) {
        const auto reason = static_cast<Omission>(i);
        omitted[std::string(name_of(reason))] = scene.omitted[i];
        if (reason == Omission::NoShape || scene.omitted[i] == 0) continue;
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ", scene.omitted[i], name_of(reason));
    }
    if (!text.empty()) account.text += fmt::format("Have a shape but are not in the {}: {}\n", what, text);
    account.json["drawn"] = scene.items.size();
    account.json["omitted"] = std::move(omitted);
}

}  // namespace veltrane::tool
