// Texts of a drawing as they are shown.
#pragma once

#include "veltrane/data/code_page.hpp"
#include "veltrane/section/model.hpp"

#include <string>
#include <string_view>

namespace veltrane::tool {

/// Characters that would control the terminal become '?'; what `kept` holds stays.
std::string without_controls(std::string text, std::string_view kept = {});

/// Turns texts of one drawing into UTF-8. Drawings before R2007 write theirs in a code page of their own.
class DrawingText {
public:
    explicit DrawingText(const DxfSection_Model& model);

    /// A name for people: escapes are resolved, and no control characters are left.
    std::string name(std::string_view text) const;
    /// Several lines of text: the same, but for escapes.
    std::string lines(std::string_view text) const;

private:
    std::string decoded(std::string_view text) const;

    bool is_utf8_;
    CodePage page_ = CodePage::Iso8859_1;
};

}  // namespace veltrane::tool
