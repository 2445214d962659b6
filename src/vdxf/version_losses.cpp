#include "vdxf/version_losses.hpp"

#include "vdxf/census.hpp"
#include "veltrane/file/file_reader.hpp"
#include "veltrane/file/file_writer.hpp"
#include "veltrane/file/object_registrator.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <sstream>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace veltrane::tool {

namespace {

constexpr const char* kOthers[] = {"AC1032", "AC1009"};  // the newest and the oldest

using Groups = std::vector<std::pair<int, std::string_view>>;

/// The groups of a written record, sorted, as views of the text. Group 0 and markers are the format's, not
/// the record's.
Groups groups_in(std::string_view text) {
    Groups groups;
    while (!text.empty()) {
        std::array<std::string_view, 2> lines;
        for (std::string_view& line : lines) {
            line = text.substr(0, text.find('\n'));
            text.remove_prefix(std::min(line.size() + 1, text.size()));
        }
        lines[0].remove_prefix(std::min(lines[0].find_first_not_of(' '), lines[0].size()));
        int code = 0;
        std::from_chars(lines[0].data(), lines[0].data() + lines[0].size(), code);
        if (code != 0 && code != 100) groups.emplace_back(code, lines[1]);
    }
    std::sort(groups.begin(), groups.end());
    return groups;
}

Groups without(const Groups& groups, const Groups& others) {
    Groups rest;
    std::set_difference(groups.begin(), groups.end(), others.begin(), others.end(), std::back_inserter(rest));
    return rest;
}

/// Writes records one at a time as for a file of one version.
class RecordWriter {
public:
    explicit RecordWriter(std::string_view version) : model_(model_of(version)), writer_(model_) {
        writer_.SetPortable(true);
    }

    /// Valid until the next call.
    std::string_view write(const DxfSection_Object& record) {
        stream_.seekp(0);  // over the last one, so that its memory serves again
        writer_.WriteObject(stream_, record);
        writer_.Flush(stream_);
        return stream_.view().substr(0, static_cast<std::size_t>(stream_.tellp()));
    }

private:
    static Ref<DxfSection_Model> model_of(std::string_view version) {
        auto model = make<DxfSection_Model>();
        if (!version.empty()) model->SetVariable("$ACADVER", 1, version);
        return model;
    }

    Ref<DxfSection_Model> model_;
    DxfFile_FileWriter writer_;
    std::ostringstream stream_;
};

class Comparison {
public:
    explicit Comparison(const DxfSection_Model& model)
        : model_(model),
          own_(model.GetVariableString("$ACADVER")),
          others_{RecordWriter(kOthers[0]), RecordWriter(kOthers[1])} {}

    void compare(const DxfSection_Object& record) {
        const std::string_view own = own_.write(record);
        for (std::size_t i = 0; i < others_.size(); ++i) {
            const std::string_view other = others_[i].write(record);
            if (other == own) continue;
            const Groups missing = without(groups_in(other), groups_in(own));
            for (const auto& [code, value] : without(missing, fresh(record, i))) count(record, code);
        }
    }
    std::vector<Loss> take() {
        std::vector<Loss> losses;
        for (const auto& [place, loss] : losses_) losses.push_back(loss);
        return losses;
    }

private:
    struct Fresh {
        std::string text;
        Groups groups;
    };

    /// What a record of this type writes when nothing was read into it.
    const Groups& fresh(const DxfSection_Object& record, std::size_t version) {
        const auto [place, is_new] = fresh_.try_emplace({&record.DynamicType(), version});
        Fresh& fresh = place->second;
        const auto* registrator = DxfFile_ObjectRegistrator::Find(record.DynamicType());
        if (is_new && registrator) {
            std::istringstream nothing("  0\nEOF\n");
            DxfFile_FileReader reader(make<DxfSection_Model>());
            reader.FillAbsent(true);
            // A writer of its own: what the others have written is being compared.
            fresh.text = RecordWriter(kOthers[version]).write(*registrator->Read(nothing, reader));
            fresh.groups = groups_in(fresh.text);
        }
        return fresh.groups;
    }

    void count(const DxfSection_Object& record, int code) {
        Loss& loss = losses_[{dxf_name(record), code}];
        if (loss.count++ > 0) return;
        loss.what = fmt::format("{}: group {} has no place in this version", dxf_name(record), code);
        loss.first_line = model_.Line(model_.Number(&record));
    }

    const DxfSection_Model& model_;
    RecordWriter own_;
    std::array<RecordWriter, 2> others_;
    std::map<std::pair<const Type*, std::size_t>, Fresh> fresh_;
    std::map<std::pair<std::string, int>, Loss> losses_;
};

/// Containers write what is inside them, which is compared on its own.
bool is_compared(const DxfSection_Object& record) {
    return !is_carried_through(record) && length(record.GetSubObjects()) == 0 &&
           !record.is_kind(DxfSection_Section::type());
}

}  // namespace

std::vector<Loss> version_losses(const DxfSection_Model& model) {
    Comparison comparison(model);
    for (const Ref<Transient>& listed : model.records()) {
        const auto* record = as<const DxfSection_Object>(listed.get());
        if (record && is_compared(*record)) comparison.compare(*record);
    }
    return comparison.take();
}

}  // namespace veltrane::tool
