// The drawing that a sub-command works on.
#pragma once

#include "vdxf/console.hpp"
#include "veltrane/control/reader.hpp"
#include "veltrane/section/model.hpp"

#include <string>

namespace veltrane::tool {

/// A file that was read. What was wrong with it stands in the checks of the model.
class Drawing {
public:
    /// Throws Failure (Unreadable) for what cannot be read as a drawing.
    Drawing(const std::string& file, const Console& console);

    const std::string& file() const { return file_; }
    DxfSection_Model& model() const { return *model_; }
    DxfControl_Reader& reader() { return reader_; }
    /// "LF", "CRLF" or "CR".
    const char* line_ends() const { return line_ends_; }
    /// Makes shapes of the drawing, with a progress bar. Throws Failure when the user stops it.
    void translate(const Console& console);

private:
    std::string file_;
    DxfControl_Reader reader_;
    Ref<DxfSection_Model> model_;
    const char* line_ends_ = "LF";
};

}  // namespace veltrane::tool
