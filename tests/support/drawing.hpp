// Drawings and transfers for tests: short text in, shapes and messages out.
#pragma once

#include "veltrane/control/actor_read.hpp"
#include "veltrane/control/controller.hpp"
#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/file/file_reader.hpp"
#include "veltrane/file/structure.hpp"
#include "veltrane/section/model.hpp"

#include <sstream>
#include <string>
#include <vector>

namespace veltrane::test {

/// Groups from one record per line: "LINE 10 0 20 0" becomes 0 LINE, 10 0, 20 0. A line that starts with '$'
/// is a header variable. Values hold no blanks.
inline std::string groups(const std::string& records) {
    std::string text;
    std::istringstream lines(records);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string word;
        if (!(words >> word)) continue;
        text += (word[0] == '$' ? "9\n" : "0\n") + word + "\n";
        while (words >> word) text += word + "\n";
    }
    return text;
}

/// The file with these header variables, blocks and entities.
inline std::string file_text(const std::string& entities, const std::string& header = {},
                             const std::string& blocks = {}) {
    const auto section = [](const char* name, const std::string& records) {
        return std::string("0\nSECTION\n2\n") + name + "\n" + groups(records) + "0\nENDSEC\n";
    };
    return section("HEADER", header) + (blocks.empty() ? "" : section("BLOCKS", blocks)) +
           section("ENTITIES", entities) + "0\nEOF\n";
}

inline Ref<DxfSection_Model> read_drawing(const std::string& text) {
    DxfControl_Controller::Init();
    auto model = make<DxfSection_Model>();
    std::istringstream stream(text);
    DxfFile_FileReader reader(model);
    reader.Next(stream);
    model->SetDxfFile(DxfFile_RWDxfFile::Read(stream, reader));
    model->AssignHandles();
    return model;
}

/// A drawing and what the import makes of its entities.
struct Import {
    explicit Import(const std::string& entities, const std::string& header = {},
                    const std::string& blocks = {})
        : model(read_drawing(file_text(entities, header, blocks))) {
        process->SetModel(model);
        transfer();
    }

    void transfer() {
        const auto binder = DxfControl_ActorRead().Transfer(section(), process, Progress());
        shape = shape_result(binder.get());
    }
    Ref<DxfSection_Section> section() const { return model->FindSection("ENTITIES", false); }
    Ref<DxfSection_Object> record(int number = 1) const { return section()->Objects->Value(number); }
    /// The texts of all fails and warnings, in order.
    std::vector<std::string> messages() const {
        std::vector<std::string> texts;
        for (const RecordReport& report : process->Reports()) {
            for (const Message& fail : report.Messages.Fails()) texts.push_back(fail.text());
            for (const Message& warning : report.Messages.Warnings()) texts.push_back(warning.text());
        }
        return texts;
    }
    /// The same as one line.
    std::string message() const {
        std::string joined;
        for (const std::string& text : messages()) joined += (joined.empty() ? "" : "; ") + text;
        return joined;
    }

    Ref<DxfSection_Model> model;
    Ref<ReadProcess> process = make<ReadProcess>();
    kernel::Shape shape;
};

}  // namespace veltrane::test
