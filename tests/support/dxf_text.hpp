// What tests of files and records share: groups in a short notation, a reader on a text, messages as texts.
#pragma once

#include "veltrane/exchange/check.hpp"
#include "veltrane/file/dxf_file.hpp"
#include "veltrane/file/file_reader.hpp"
#include "veltrane/file/file_writer.hpp"
#include "veltrane/section/model.hpp"

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace veltrane {

/// DXF text of groups written as "0 LINE|8 walls|10 1.5": code, one blank, value.
inline std::string dxf(std::string_view groups, std::string_view line_end = "\n") {
    std::string text;
    while (!groups.empty()) {
        const std::string_view group = groups.substr(0, groups.find('|'));
        groups.remove_prefix(std::min(groups.size(), group.size() + 1));
        const std::size_t blank = std::min(group.find(' '), group.size());
        text.append(group.substr(0, blank)).append(line_end);
        text.append(group.substr(std::min(group.size(), blank + 1))).append(line_end);
    }
    return text;
}

/// DXF text in that notation. Blanks before codes and values are alignment and left out.
inline std::string short_form(const std::string& text) {
    const auto trimmed = [](std::string line) { return line.erase(0, line.find_first_not_of(' ')); };
    std::istringstream in(text);
    std::string result, code, value;
    while (std::getline(in, code) && std::getline(in, value)) {
        result += (result.empty() ? "" : "|") + trimmed(code) + " " + trimmed(value);
    }
    return result;
}

using Texts = std::vector<std::string>;

/// "fail: ..." and "warning: ...".
inline Texts messages(const Check* check) {
    Texts texts;
    if (!check) return texts;
    for (const Message& fail : check->Fails()) texts.push_back("fail: " + fail.text());
    for (const Message& warning : check->Warnings()) texts.push_back("warning: " + warning.text());
    return texts;
}

/// A group reader on a text, with a model that takes what it reads and reports.
struct TextReader {
    explicit TextReader(std::string text, char delimiter = '\n') : stream(std::move(text)), reader(model) {
        DxfFile::Init();
        reader.SetDelimiter(delimiter);
    }
    void next() { reader.Next(stream); }
    Texts global() const { return messages(&model->GlobalCheck()); }
    Texts of(const Transient* record) const { return messages(model->CheckOf(model->Number(record))); }

    Ref<DxfSection_Model> model = make<DxfSection_Model>();
    std::istringstream stream;
    DxfFile_FileReader reader;
};

/// Reads the record that begins at the next group.
inline Ref<DxfSection_Object> record_of(TextReader& from) {
    from.next();
    return from.reader.ReadObject(from.stream);
}
inline Ref<DxfSection_Object> record_of(std::string_view groups) {
    TextReader from(dxf(groups) + "0\nEOF\n");
    return record_of(from);
}

/// What `write(stream, writer)` writes for a version.
template <class Write>
std::string written_by(int version, Write write,
                       const Ref<DxfSection_Model>& model = make<DxfSection_Model>()) {
    DxfFile::Init();
    model->SetVariable("$ACADVER", 1, "AC" + std::to_string(version));
    std::ostringstream out;
    DxfFile_FileWriter writer(model);
    write(out, writer);
    writer.Flush(out);
    return out.str();
}
inline std::string written(const DxfSection_Object& record, int version) {
    return written_by(
        version, [&](std::ostream& out, DxfFile_FileWriter& writer) { writer.WriteObject(out, record); });
}

/// A folder of its own for each test, removed with all it holds.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "veltrane-XXXXXX").string();
        if (!::mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
        path_ = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string file(std::string_view name) const { return (path_ / name).string(); }
    std::string file(std::string_view name, std::string_view content) const {
        std::ofstream(file(name), std::ios::binary) << content;
        return file(name);
    }
    static std::string content(const std::string& name) {
        std::ifstream in(name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace veltrane
