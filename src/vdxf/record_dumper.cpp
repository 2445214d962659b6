#include "vdxf/record_dumper.hpp"

#include "vdxf/census.hpp"
#include "vdxf/drawing_text.hpp"
#include "veltrane/file/common.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <sstream>
#include <string_view>
#include <utility>

namespace veltrane::tool {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kNames = 1, kFields = 2, kEverything = 4;  // levels from which on these are shown
constexpr int kAllDepths = 100;                          // of what is nested in a record

/// What there is to tell about one record.
class RecordFacts {
public:
    RecordFacts(const DxfSection_Model& model, int level) : model_(model), text_(model), level_(level) {}

    bool shows_names() const { return level_ >= kNames; }
    bool shows_fields() const { return level_ >= kFields; }
    int line_of(const DxfSection_Object& record) const { return model_.Line(model_.Number(&record)); }
    std::string layer_name_of(const DxfSection_Object& record) const { return text_.name(layer_of(record)); }

    /// The name in the model's label, which tells the handle, too: "LTYPE" of "(#2, LTYPE)".
    std::string name_of(const DxfSection_Object& record) const {
        const Text label = model_.StringLabel(&record);
        std::string_view name = label.view();
        if (name.substr(0, 1) == "#") return {};
        if (name.substr(0, 2) == "(#") {
            name.remove_prefix(std::min(name.find(", ") + 2, name.size()));
            name.remove_suffix(1);
        }
        return text_.name(name);
    }

    /// The fields as lines of text.
    std::string fields_of(const DxfSection_Object& record, Contents contents) {
        buffer_.seekp(0);  // over the last ones, so that their memory serves again
        const int depth = level_ < kEverything ? level_ - kFields : kAllDepths;
        DxfFile_RWObject::Dump(buffer_, record, contents == Contents::Counted ? 0 : depth);
        return text_.lines(buffer_.view().substr(0, static_cast<std::size_t>(buffer_.tellp())));
    }

private:
    const DxfSection_Model& model_;
    DrawingText text_;
    int level_;
    std::ostringstream buffer_;
};

/// Calls `visit` with every line of a text.
template <class Visit>
void for_each_line(std::string_view text, Visit visit) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        visit(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

/// Indents the lines of a dump by the braces that its lists, pieces and bases stand in.
class Indenter {
public:
    explicit Indenter(std::ostream& out) : out_(out) {}

    void line(std::string_view text) {
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        if (text == "}" && depth_ > 1) --depth_;
        for (int i = 0; i < depth_; ++i) out_ << "  ";
        out_ << text << '\n';
        if (opens(text)) ++depth_;
    }

private:
    /// "{", "{ClassName", "Label {", "Label: {" and "Label: {ClassName" open a brace; "{330, 2F}" does not.
    static bool opens(std::string_view text) {
        constexpr std::string_view kAfterLabel = ": \t";
        const std::size_t label = text.find(kAfterLabel);
        if (label == std::string_view::npos && text.ends_with(" {")) return true;
        if (label != std::string_view::npos) text.remove_prefix(label + kAfterLabel.size());
        return !text.empty() && text.front() == '{' && text.back() != '}';
    }

    std::ostream& out_;
    int depth_ = 1;
};

class TextDumper : public RecordDumper {
public:
    TextDumper(std::ostream& out, const DxfSection_Model& model, int level)
        : out_(out), facts_(model, level) {}

    void dump(const DxfSection_Object& record, Contents contents) override {
        out_ << dxf_name(record);
        const std::string handle = handle_of(record);
        if (!handle.empty()) out_ << " #" << handle;
        if (const int line = facts_.line_of(record)) out_ << " line " << line;
        if (facts_.shows_names()) print_names(record);
        out_ << '\n';
        if (!facts_.shows_fields()) return;
        Indenter indenter(out_);
        const std::string fields = facts_.fields_of(record, contents);
        for_each_line(fields, [&](std::string_view line) { indenter.line(line); });
    }

private:
    void print_names(const DxfSection_Object& record) {
        const std::string layer = facts_.layer_name_of(record);
        const std::string name = facts_.name_of(record);
        if (!layer.empty()) out_ << " layer \"" << layer << '"';
        if (!name.empty()) out_ << " name \"" << name << '"';
    }

    std::ostream& out_;
    RecordFacts facts_;
};

class JsonDumper : public RecordDumper {
public:
    JsonDumper(std::ostream& out, const DxfSection_Model& model, int level, const std::string& file)
        : out_(out), facts_(model, level) {
        out_ << "{\"file\": " << text_of(file) << ",\n\"records\": [";
    }
    ~JsonDumper() override { out_ << "\n]}\n"; }

    void dump(const DxfSection_Object& record, Contents contents) override {
        Json entry = {
            {"type", dxf_name(record)}, {"handle", handle_of(record)}, {"line", facts_.line_of(record)}};
        if (facts_.shows_names()) {
            entry["name"] = facts_.name_of(record);
            entry["layer"] = facts_.layer_name_of(record);
        }
        if (facts_.shows_fields()) {
            Json lines = Json::array();
            const std::string fields = facts_.fields_of(record, contents);
            for_each_line(fields, [&](std::string_view line) { lines.push_back(line); });
            entry["fields"] = std::move(lines);
        }
        out_ << (is_first_ ? "\n" : ",\n") << text_of(entry);
        is_first_ = false;
    }

private:
    static std::string text_of(const Json& value) {
        return value.dump(-1, ' ', false, Json::error_handler_t::replace);
    }

    std::ostream& out_;
    RecordFacts facts_;
    bool is_first_ = true;
};

}  // namespace

std::unique_ptr<RecordDumper> text_dumper(std::ostream& out, const DxfSection_Model& model, int level) {
    return std::make_unique<TextDumper>(out, model, level);
}

std::unique_ptr<RecordDumper> json_dumper(std::ostream& out, const DxfSection_Model& model, int level,
                                          const std::string& file) {
    return std::make_unique<JsonDumper>(out, model, level, file);
}

}  // namespace veltrane::tool
